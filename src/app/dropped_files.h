// What the main window does with files dropped on it.
#pragma once

#include <string>
#include <vector>

#include "base/file_pattern.h"
#include "platform/file_system.h"

namespace nerolith::app {

struct DropPlan {
  enum class Does { Nothing, ImportsPlaylist, OpensFolder, PlaysSong };
  Does does = Does::Nothing;
  std::string path;
};

/// One folder, one file whose name ends in ".m3u", in capitals or not, or one that the folder
/// browser would list as a song (`songs`); anything else, and more than one at a time, is refused.
DropPlan planDrop(const std::vector<std::string>& paths, const platform::FileSystem& files,
                  const base::FilePattern& songs);

}  // namespace nerolith::app
