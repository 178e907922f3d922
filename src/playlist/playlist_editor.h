// The window that the add operation hands a playlist file to.
#pragma once

#include <string>

#include "base/failure.h"

namespace nerolith::playlist {

/// playlistfile -> the main window is hidden, where the editor stays -> show. The editor brings the
/// main window back when it closes, which it does at once after it was shown where the file yielded
/// no entry: then it has written the selected songs into the file already, within `playlistfile`.
class PlaylistEditor {
 public:
  virtual ~PlaylistEditor() = default;

  /// Loads the file, which exists. Fails when it cannot be read or written; nothing is shown then.
  virtual void playlistfile(const std::string& path) = 0;
  /// Whether the window stays once it is shown. A main window hidden for one that closes at once
  /// would only flicker.
  virtual bool stays() const = 0;
  /// Shows the window (modeless) and gives it the focus.
  virtual void show() = 0;
};

/// A player without the editor: adding ends before anything is hidden.
class NoPlaylistEditor final : public PlaylistEditor {
 public:
  void playlistfile(const std::string&) override {
    throw base::Failure("There is no playlist editor.");
  }
  bool stays() const override { return false; }
  void show() override {}
};

}  // namespace nerolith::playlist
