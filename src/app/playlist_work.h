// The playlist operations, bound to the menu and to the main window's keys.
#pragma once

#include <string>
#include <vector>

#include "app/neighbours.h"
#include "base/signal.h"
#include "forms/main_menu.h"
#include "playlist/playlist_files.h"

namespace nerolith::app {

/// Subscribes the items of the menu's "Playlist actions"; the keys come through the operations.
/// Lives as long as the main window; what is handed over outlives it.
class PlaylistWork final : public PlaylistActions {
 public:
  PlaylistWork(const playlist::PlaylistParts& parts, playlist::PlaylistEditor& editor,
               forms::MainMenu& menu);
  PlaylistWork(const PlaylistWork&) = delete;
  PlaylistWork& operator=(const PlaylistWork&) = delete;

  void importPlaylist() override { files_.importPlaylist(); }
  void addSelection() override { files_.addSelection(); }
  void quickAdd() override { files_.quickAdd(); }
  void clearPlaylist() override { files_.clearPlaylist(); }
  void updatePlaylist() override { files_.updatePlaylist(); }
  void openPlaylist(const std::string& path) override { files_.openPlaylist(path); }
  std::string rememberedPlaylist() const override { return files_.remembered(); }

 private:
  playlist::PlaylistFiles files_;
  std::vector<base::Subscription> subscriptions_;
};

}  // namespace nerolith::app
