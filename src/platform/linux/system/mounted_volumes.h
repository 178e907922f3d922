// Which mounted volumes a person would choose music from.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "controls/file_lists.h"

namespace nerolith::system {

/// From the text of /proc/self/mountinfo: the root first, then the volume of the home folder
/// (unless it is the root), then removable ones (below /media, /run/media and /mnt) and network
/// shares wherever they are mounted, sorted by name. The system's own mounts are left out, lines
/// that make no sense skipped. Pure.
std::vector<controls::DriveEntry> chooseVolumes(std::string_view mountInfo,
                                                const std::string& homeFolder);

/// The longest of the drives' roots that `path` lies in; empty when there is none.
std::string volumeOf(const std::vector<controls::DriveEntry>& drives, const std::string& path);

}  // namespace nerolith::system
