// The drives of the machine.
#pragma once

#include <vector>

#include "controls/file_lists.h"

namespace nerolith::windows {

/// Every drive letter in use, in order: "C:\" labelled "C: [System]", "Z: [\\server\music]" or
/// "A:". Asks neither a floppy drive nor the network, so that it costs next to nothing.
std::vector<controls::DriveEntry> listVolumes();

}  // namespace nerolith::windows
