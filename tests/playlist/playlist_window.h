// A main window with its playlist operations on a simulated machine.
#pragma once

#include <string>
#include <vector>

#include "library/browser_window.h"
#include "playlist/playlist_files.h"
#include "playlist/playlist_text.h"
#include "playlist/selected_songs.h"
#include "settings/stored_settings.h"

namespace nerolith::playlist {

/// Writes down what is asked of it, and does what the real one does with an empty file.
class ScriptedEditor final : public PlaylistEditor {
 public:
  ScriptedEditor(platform::ByteFiles& bytes, const platform::TextEncoding& encoding,
                 library::SongList& songs, library::FolderBrowser& browser)
      : bytes_(bytes), encoding_(encoding), songs_(songs), browser_(browser) {}

  void playlistfile(const std::string& path) override {
    if (broken) throw base::Failure("This editor is broken.");
    calls.push_back("playlistfile " + path);
    empty_ = readPlaylist(bytes_, path, encoding_, EmptyLines::Kept).empty();
    if (!empty_) return;
    const auto paths = selectedSongs(songs_, folderPrefix(songs_, browser_.folder(), '\\'));
    bytes_.replace(path, playlistBytes(paths, encoding_));
  }
  bool stays() const override { return !empty_; }
  void show() override {
    if (invisible) throw base::Failure("There is no window to be had.");
    calls.push_back("show");
  }

  bool broken = false, invisible = false;
  std::vector<std::string> calls;

 private:
  bool empty_ = false;
  platform::ByteFiles& bytes_;
  const platform::TextEncoding& encoding_;
  library::SongList& songs_;
  library::FolderBrowser& browser_;
};

/// In folder mode, C:\Music with a.mp3, b.mp3 and c.mp3 in the list.
struct PlaylistWindow : library::BrowserWindow {
  settings::LiveSettings live;
  settings::StoredSettings stored{machine.settings, live};
  ScriptedEditor editor{machine.bytes, machine.encoding, songs, browser};
  PlaylistFiles playlists{{machine.files, machine.bytes, machine.encoding, machine.dialogs,
                           form.form, songs, browser, stored},
                          editor};

  void SetUp() override {
    BrowserWindow::SetUp();
    machine.windows.add(form.form);
    form.form.setVisible(true);
    machine.advance(std::chrono::milliseconds(0));
    machine.clearTrace();
  }
  void TearDown() override {
    EXPECT_EQ(machine.dialogs.unusedAnswers(), 0u);
    machine.windows.remove(form.form);
  }

  void put(const std::string& path, const std::string& bytes) { machine.bytes.put(path, bytes); }
  const std::string& bytesAt(const std::string& path) { return machine.bytes.at(path); }
  void select(std::initializer_list<int> positions) {
    for (const int position : positions) form.List1.setSelected(position, true);
  }
  void import(const std::string& path) {
    machine.dialogs.chooseFile(path);
    playlists.importPlaylist();
  }
  std::string dialogs() { return machine.trace({platform::simulated::Door::Dialogs}); }
  library::ListMode mode() { return songs.mode(); }
};

}  // namespace nerolith::playlist
