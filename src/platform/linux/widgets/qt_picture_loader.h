// Reads pictures with the toolkit's decoders.
#pragma once

#include "platform/picture_loader.h"

namespace nerolith::widgets {

/// Pictures larger than any screen are read reduced, so that a camera's photograph as a skin does
/// not fill the memory.
class QtPictureLoader : public platform::PictureLoader {
 public:
  controls::Picture load(const std::string& path) const override;
};

}  // namespace nerolith::widgets
