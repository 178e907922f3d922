#include "app/dropped_files.h"

#include "app/command_line.h"

namespace nerolith::app {

DropPlan planDrop(const std::vector<std::string>& paths, const platform::FileSystem& files,
                  const base::FilePattern& songs) {
  if (paths.size() != 1) return {};
  const std::string& path = paths.front();
  if (files.folderExists(path)) return {DropPlan::Does::OpensFolder, path};
  if (!files.fileExists(path)) return {};
  if (namesPlaylist(path)) return {DropPlan::Does::ImportsPlaylist, path};
  if (songs.matches(splitPath(path, files.separator()).name))
    return {DropPlan::Does::PlaysSong, path};
  return {};
}

}  // namespace nerolith::app
