// The demo pieces.
#pragma once

#include <vector>

#include "note.h"

namespace nerolith::demo {

/// All pieces, each 20 to 26 seconds long; the same notes at every call.
std::vector<Song> allSongs();

}  // namespace nerolith::demo
