#include "playlist/playlist_files.h"

#include <utility>

#include "base/failure_policy.h"
#include "playlist/playlist_text.h"
#include "playlist/selected_songs.h"

namespace nerolith::playlist {
namespace {

using base::endQuietly;
using library::ListMode;

constexpr const char* kFilter = "*.m3u|*.m3u";
constexpr const char* kEnding = "m3u";
constexpr const char* kImportTitle = "Import playlistfile (*.m3u)";
constexpr const char* kAddTitle = "Add selected files to playlist (*.m3u)";
constexpr const char* kClearTitle = "Clear playlistfile";
constexpr const char* kNoneOpened = "No playlistfile opend";

bool endsALine(const std::string& end) { return end.empty() || end == "\n" || end == "\r"; }

}  // namespace

void PlaylistFiles::importPlaylist() {
  endQuietly([this] {
    if (!remembered_.empty() && !p_.files.fileExists(remembered_)) remembered_.clear();
    if (remembered_.empty() || p_.songs.mode() == ListMode::Playlist) {
      if (chooseForImport()) import();
    } else if (!endQuietly([this] { import(); })) {
      remembered_.clear();
    }
  });
}

void PlaylistFiles::openPlaylist(const std::string& path) {
  remembered_ = path;
  endQuietly([this] { import(); });
}

bool PlaylistFiles::chooseForImport() {
  const auto chosen = p_.dialogs.openFile({kImportTitle, kFilter, dialogFile_});
  if (!chosen || chosen->empty()) return false;
  remembered_ = *chosen;
  return true;
}

/// The file is read whole before the list is touched.
void PlaylistFiles::import() {
  dialogFile_ = remembered_;
  if (p_.songs.mode() == ListMode::Folder) p_.stored.writePath(p_.browser.folder());
  p_.browser.setDriveOf(dialogFile_);
  p_.songs.fillFromPlaylist(readPlaylist(p_.bytes, dialogFile_, p_.encoding));
  lastOpened_ = dialogFile_;
  p_.songs.list1().setFocus();
}

void PlaylistFiles::addSelection() {
  endQuietly([this] { add(); });
}

void PlaylistFiles::add() {
  p_.songs.readListCount();
  if (p_.songs.mode() == ListMode::Playlist) p_.songs.text2().setText("");
  if (!chooseForWriting(kAddTitle)) return;
  if (!p_.files.fileExists(dialogFile_)) p_.bytes.create(dialogFile_);
  lastOpened_ = dialogFile_;
  editor_.playlistfile(lastOpened_);
  if (editor_.stays()) p_.window.setVisible(false);
  // Without a window the player would be lost to its user.
  if (!endQuietly([this] { editor_.show(); })) p_.window.setVisible(true);
}

void PlaylistFiles::quickAdd() {
  if (lastOpened_.empty()) addSelection();
  if (!lastOpened_.empty()) endQuietly([this] { append(); });
}

void PlaylistFiles::append() {
  const std::string prefix = folderPrefix(p_.songs, p_.browser.folder(), p_.files.separator());
  const auto paths = selectedSongs(p_.songs, prefix);
  if (paths.empty()) return;
  // Other programs may leave the last line open; it must not run into the first song.
  const bool open = !endsALine(p_.bytes.readEnd(lastOpened_, 1));
  p_.bytes.append(lastOpened_, (open ? "\r\n" : "") + playlistBytes(paths, p_.encoding));
}

void PlaylistFiles::clearPlaylist() {
  endQuietly([this] {
    if (!chooseForWriting(kClearTitle)) return;
    p_.bytes.replace(dialogFile_, "");
    p_.songs.list1().setFocus();
  });
}

bool PlaylistFiles::chooseForWriting(const char* title) {
  const auto chosen = p_.dialogs.saveFile({title, kFilter, dialogFile_, false, kEnding});
  if (!chosen || chosen->empty()) return false;
  dialogFile_ = *chosen;
  return true;
}

void PlaylistFiles::updatePlaylist() {
  endQuietly([this] {
    if (p_.songs.mode() == ListMode::Folder) {
      p_.dialogs.showMessage({kNoneOpened});
      return;
    }
    p_.bytes.replace(lastOpened_, playlistBytes(p_.songs.list1().items(), p_.encoding));
  });
}

}  // namespace nerolith::playlist
