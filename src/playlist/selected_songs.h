// The songs that the playlist operations write.
#pragma once

#include <string>
#include <vector>

#include "library/song_list.h"

namespace nerolith::playlist {

/// `folder` with a separator at its end; empty in playlist mode, where entries are full paths.
std::string folderPrefix(const library::SongList& songs, const std::string& folder, char separator);

/// Prefix and entry of each selected song, in list order. The list is hidden during the walk.
std::vector<std::string> selectedSongs(library::SongList& songs, const std::string& prefix);

}  // namespace nerolith::playlist
