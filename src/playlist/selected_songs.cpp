#include "playlist/selected_songs.h"

namespace nerolith::playlist {

std::string folderPrefix(const library::SongList& songs, const std::string& folder,
                         char separator) {
  if (songs.mode() == library::ListMode::Playlist) return {};
  return folder.ends_with(separator) ? folder : folder + separator;
}

std::vector<std::string> selectedSongs(library::SongList& songs, const std::string& prefix) {
  controls::ListBox& list = songs.list1();
  const controls::ListBox::Walk hidden(list);
  std::vector<std::string> paths;
  paths.reserve(static_cast<std::size_t>(list.selectedCount()));
  for (int i = 0; i < list.count(); ++i)
    if (list.selected(i)) paths.push_back(prefix + list.item(i));
  return paths;
}

}  // namespace nerolith::playlist
