// Pictures that are there because a test says so.
#pragma once

#include <map>
#include <string>

#include "platform/picture_loader.h"
#include "platform/simulated/doorway.h"

namespace nerolith::platform::simulated {

/// Trace: "pictures.load PATH". A path without a picture fails, as a missing file does.
class SimulatedPictures : public PictureLoader {
 public:
  explicit SimulatedPictures(Doorway& doorway) : doorway_(doorway) {}

  void add(const std::string& path, controls::Picture picture) {
    pictures_[path] = std::move(picture);
  }

  controls::Picture load(const std::string& path) const override {
    doorway_.act({Door::Pictures, "pictures", "load", path});
    const auto found = pictures_.find(path);
    if (found == pictures_.end()) doorway_.refuse(path + ": no picture");
    return found->second;
  }

 private:
  Doorway& doorway_;
  std::map<std::string, controls::Picture> pictures_;
};

}  // namespace nerolith::platform::simulated
