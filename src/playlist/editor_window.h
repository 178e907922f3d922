// The playlist editor: songs in front of, behind or instead of a line of a playlist file.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/signal.h"
#include "forms/editor_form.h"
#include "library/song_list.h"
#include "platform/byte_files.h"
#include "platform/text_encoding.h"
#include "playlist/playlist_edit.h"
#include "playlist/playlist_editor.h"

namespace nerolith::playlist {

/// What the editor works on; everything outlives it.
struct EditorParts {
  forms::EditorForm& form;
  library::SongList& songs;
  platform::ByteFiles& bytes;
  platform::TextEncoding& encoding;
  char separator;
};

/// What it asks of the main window.
struct EditorLinks {
  std::function<std::string()> folder;  // whose files the song list shows
  std::function<void()> showMainWindow;
  std::function<void()> addSelection;  // asks for a playlist file and hands it over
};

/// Life of a file: playlistfile -> show -> activated (its path becomes the caption) -> edited ->
/// closed, by which the main window comes back. User-interface thread only.
///
/// The songs are those selected when the file is handed over, and "Next M3U" goes on with the same:
/// the player plays on meanwhile, and each song that starts takes the selection with it.
///
/// Each change rewrites the whole file first and is seen in the list once that has worked: what
/// cannot be written leaves file and list as they were, and adding or removing says why.
class EditorWindow final : public PlaylistEditor {
 public:
  EditorWindow(const EditorParts& parts, EditorLinks links);
  EditorWindow(const EditorWindow&) = delete;
  EditorWindow& operator=(const EditorWindow&) = delete;

  void playlistfile(const std::string& path) override;
  bool stays() const override { return !fileWasEmpty_; }
  /// A file that had no line has been written already: it is not shown, and counts as closed.
  void show() override;

  // At the current position; failures pass to the caller.
  void insertBefore();
  void insertAfter();
  void replace();
  void remove();

 private:
  void subscribe();
  void activated();
  void closed();
  void keyDown(const controls::KeyPress& press);
  void rowClicked(int position);
  void popUpMenu();
  void nextPlaylist();
  void tellTrouble(const std::function<void()>& change);

  Lines selection() const;
  int position() const { return positionOf(p_.form.List1.listIndex()); }
  void write(const std::string& path, const Lines& lines) const;
  void change(Lines lines, int current);
  void fill(Lines lines, int current);

  template <typename Signal, typename Handler>
  void on(Signal& signal, Handler handler) {
    subscriptions_.push_back(signal.subscribe(std::move(handler)));
  }

  EditorParts p_;
  EditorLinks links_;
  std::string path_;
  Lines songs_;
  bool fileWasEmpty_ = false;
  bool sameSongs_ = false;  // the file that comes is a further one for the same songs
  const controls::CommandButton* focused_ = nullptr;  // the button that has the keyboard
  std::vector<base::Subscription> subscriptions_;
};

}  // namespace nerolith::playlist
