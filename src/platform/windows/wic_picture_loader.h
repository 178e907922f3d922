// Reads pictures with the system's decoders.
#pragma once

#include "platform/picture_loader.h"

namespace nerolith::windows {

/// JPEG, PNG and whatever else the system has a decoder for, told by its content. Pictures larger
/// than any screen are read reduced, so that a camera's photograph as a skin does not fill the
/// memory. Opaque pixels only. COM has to be in use (see com_apartment.h).
class WicPictureLoader : public platform::PictureLoader {
 public:
  controls::Picture load(const std::string& path) const override;
};

}  // namespace nerolith::windows
