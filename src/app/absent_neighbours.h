// A main window without the parts around the player.
#pragma once

#include "app/neighbours.h"

namespace nerolith::app {

/// No playlist files: nothing is imported, and no playlist is remembered.
class NoPlaylists final : public PlaylistActions {
 public:
  void importPlaylist() override {}
  void addSelection() override {}
  void quickAdd() override {}
  void clearPlaylist() override {}
  void updatePlaylist() override {}
  void reopen(const std::string& path) override { remembered_ = path; }
  /// What the last run remembered outlives a run that cannot open it.
  std::string rememberedPlaylist() const override { return remembered_; }

 private:
  std::string remembered_;
};

/// No notification area: the main window minimises instead of hiding.
class NoNotificationIcon final : public NotificationIcon {
 public:
  void add(const std::string&) override {}
  void remove() override {}
  bool present() const override { return false; }
};

}  // namespace nerolith::app
