#include "app/dropped_files.h"

#include "app/command_line.h"

namespace nerolith::app {

DropPlan planDrop(const std::vector<std::string>& paths, const platform::FileSystem& files) {
  if (paths.size() != 1) return {};
  const std::string& path = paths.front();
  if (files.folderExists(path)) return {DropPlan::Does::OpensFolder, path};
  if (namesPlaylist(path) && files.fileExists(path)) return {DropPlan::Does::ImportsPlaylist, path};
  return {};
}

}  // namespace nerolith::app
