#include "app/playlist_work.h"

namespace nerolith::app {

PlaylistWork::PlaylistWork(const playlist::PlaylistParts& parts, playlist::PlaylistEditor& editor,
                           forms::MainMenu& menu)
    : files_(parts, editor) {
  const auto on = [this](controls::MenuItem& item, auto action) {
    subscriptions_.push_back(item.click.subscribe(action));
  };
  on(menu.open, [this] { files_.importPlaylist(); });
  on(menu.add, [this] { files_.addSelection(); });
  on(menu.mnuAddQuick, [this] { files_.quickAdd(); });
  on(menu.create, [this] { files_.clearPlaylist(); });
  on(menu.Update_Playlist, [this] { files_.updatePlaylist(); });
}

}  // namespace nerolith::app
