// What the player does with playlist files: import, add, quick-add, clear, update.
#pragma once

#include <string>

#include "controls/form.h"
#include "library/folder_browser.h"
#include "library/song_list.h"
#include "platform/byte_files.h"
#include "platform/dialogs.h"
#include "platform/file_system.h"
#include "platform/text_encoding.h"
#include "playlist/playlist_editor.h"
#include "settings/stored_settings.h"

namespace nerolith::playlist {

/// What the operations work on; everything outlives them.
struct PlaylistParts {
  platform::FileSystem& files;
  platform::ByteFiles& bytes;
  platform::TextEncoding& encoding;
  platform::Dialogs& dialogs;
  controls::Form& window;
  library::SongList& songs;
  library::FolderBrowser& browser;
  settings::StoredSettings& stored;
};

/// Each operation is an action of the user: it ends quietly at its first failure, what was done
/// stays done, and no file is ever left half written. A dialog that the user cancels ends the
/// operation before anything was done. User-interface thread only.
///
/// Two paths are kept. The remembered playlist is the one last imported; it survives restarts. The
/// last opened playlist is the one last imported or last chosen to add to, in this run; quick-add
/// and update write to it.
class PlaylistFiles {
 public:
  PlaylistFiles(const PlaylistParts& parts, PlaylistEditor& editor) : p_(parts), editor_(editor) {}
  PlaylistFiles(const PlaylistFiles&) = delete;
  PlaylistFiles& operator=(const PlaylistFiles&) = delete;

  /// Replaces the song list by a playlist's songs. From a folder, the remembered playlist comes
  /// back without a question as long as its file exists; else the user is asked. A remembered one
  /// that cannot be read is forgotten, so that the next import asks.
  void importPlaylist();
  /// Imports this file, without a question.
  void openPlaylist(const std::string& path);
  /// Asks for a file, which is made when it is not there, and hands it to the editor.
  void addSelection();
  /// Adds the selected songs at the end of the last opened playlist. Without one, `addSelection`
  /// runs first; a new file then gets the songs twice, once by the editor.
  void quickAdd();
  /// Asks for a file and empties it, or makes it, without a further question.
  void clearPlaylist();
  /// Rewrites the last opened playlist with all entries of the song list, selected or not; in
  /// folder mode there is none to rewrite, and a message says so.
  void updatePlaylist();

  const std::string& remembered() const { return remembered_; }
  const std::string& lastOpened() const { return lastOpened_; }

 private:
  void import();
  void add();
  void append();
  bool chooseForImport();
  bool chooseForWriting(const char* title);

  PlaylistParts p_;
  PlaylistEditor& editor_;
  std::string remembered_;
  std::string lastOpened_;
  /// What the file dialog shows at first: the path that it, or an import, ended with.
  std::string dialogFile_;
};

}  // namespace nerolith::playlist
