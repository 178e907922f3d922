// What the main window calls of the parts around the player.
#pragma once

#include <string>

#include "base/signal.h"

namespace nerolith::app {

/// Playlist files. Every operation is an action of the user and ends quietly.
class PlaylistActions {
 public:
  virtual ~PlaylistActions() = default;

  virtual void importPlaylist() = 0;
  virtual void addSelection() = 0;
  virtual void quickAdd() = 0;
  virtual void clearPlaylist() = 0;
  virtual void updatePlaylist() = 0;
  /// Imports this file without a question: the playlist of the last run, one that the command line
  /// names, one that was dropped on the window.
  virtual void openPlaylist(const std::string& path) = 0;
  /// Path of the last imported playlist, kept for the next run; empty for none.
  virtual std::string rememberedPlaylist() const = 0;
};

/// Functions over the selected entries, and the files marked for deletion.
class SelectionActions {
 public:
  virtual ~SelectionActions() = default;

  virtual void removeSelected() = 0;
  /// Deletes what was marked, skipping each failure. Called once, at close.
  virtual void deleteMarkedFiles() = 0;
};

/// The icon in the notification area.
class NotificationIcon {
 public:
  virtual ~NotificationIcon() = default;

  virtual void add(const std::string& tip) = 0;
  virtual void remove() = 0;
  /// Whether the user can bring a hidden window back from it.
  virtual bool present() const = 0;
  /// It was present and is no longer, without having been removed.
  base::Signal<> lost;
};

struct Neighbours {
  PlaylistActions& playlists;
  SelectionActions& selection;
  NotificationIcon& icon;
};

}  // namespace nerolith::app
