// Reads picture files.
#pragma once

#include <string>

#include "controls/picture.h"

namespace nerolith::platform {

class PictureLoader {
 public:
  virtual ~PictureLoader() = default;

  /// Decodes a JPEG (or what else the platform reads). Fails when it is missing or damaged.
  virtual controls::Picture load(const std::string& path) const = 0;
};

}  // namespace nerolith::platform
