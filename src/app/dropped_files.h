// What the main window does with files dropped on it.
#pragma once

#include <string>
#include <vector>

#include "platform/file_system.h"

namespace nerolith::app {

struct DropPlan {
  enum class Does { Nothing, ImportsPlaylist, OpensFolder };
  Does does = Does::Nothing;
  std::string path;
};

/// One folder, or one file whose name ends in ".m3u", in capitals or not; anything else, and more
/// than one at a time, is refused.
DropPlan planDrop(const std::vector<std::string>& paths, const platform::FileSystem& files);

}  // namespace nerolith::app
