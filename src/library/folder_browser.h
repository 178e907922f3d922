// The drive, folder and file lists, and how they fill the song list.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/buttons.h"
#include "controls/file_lists.h"
#include "controls/form.h"
#include "controls/label.h"
#include "library/song_list.h"
#include "platform/file_system.h"

namespace nerolith::library {

/// The controls that the browser lives in.
struct BrowserControls {
  controls::Form& window;
  controls::DriveListBox& Drive1;
  controls::DirListBox& Dir1;         // pops up while the drive list is used
  controls::FileListBox& File1;       // never shown; its pattern is set by the form
  controls::CommandButton& Command5;  // Refresh
  controls::Label& Label9;            // display name of the song
};

/// A short text for the user: why a folder could not be shown; empty once another one was read.
using Notice = std::function<void(std::string)>;

/// The folder to come back to after a playlist; given what to use when none is remembered.
using RememberedFolder = std::function<std::string(const std::string& fallback)>;

/// Lifecycle: made with empty lists -> readDrives and setFolder at start-up -> follows the
/// controls' events until it is destroyed. User-interface thread only.
///
/// A folder is read whole before anything is changed. When that fails (a drive that is not ready,
/// an unreadable or vanished folder), song list, tags, list mode and file list stay as they are,
/// the drive and folder lists go back to the folder shown before, and the user gets a notice.
/// Nothing here throws.
class FolderBrowser {
 public:
  FolderBrowser(BrowserControls controls, SongList& songs, platform::FileSystem& files,
                RememberedFolder rememberedFolder, Notice notice);
  FolderBrowser(const FolderBrowser&) = delete;
  FolderBrowser& operator=(const FolderBrowser&) = delete;

  /// Fills the drive list with the drives there are now.
  void readDrives();

  /// Sets the drive list and the folder list to `folder` (absolute); a folder that is not the one
  /// shown fills the song list, in folder mode. False when it could not be read.
  bool setFolder(const std::string& folder);

  /// Sets the drive list to the drive that `path` lies on; another drive than the chosen one shows
  /// that drive's current folder, as when the user chooses it.
  void setDriveOf(const std::string& path);

  /// Reads the folder again and clears the tags, keeping the list's current position.
  void refresh();

  /// The folder whose files are listed; empty before the first one.
  const std::string& folder() const { return c_.File1.path(); }

 private:
  struct Listing {
    std::vector<std::string> ancestors, folders, files;
  };

  void subscribe();
  void driveChanged();
  void driveGotFocus();
  void folderChanged();
  void enterFileListFolder();
  void returnToRememberedFolder();

  Listing listingOf(const std::string& folder) const;
  bool show(const std::string& folder);
  void take(const std::string& folder, Listing listing);
  void fillSongList();
  bool reread();
  void followDrive(const std::string& folder);
  void goBackToShownFolder();
  void tellTrouble(const std::string& text);
  void hideFolders() { c_.Dir1.setVisible(false); }
  std::string withSeparator(std::string folder) const;

  BrowserControls c_;
  SongList& songs_;
  platform::FileSystem& files_;
  RememberedFolder rememberedFolder_;
  Notice notice_;
  /// Where the drive list goes back to when another drive cannot be shown.
  std::string shownDrive_;
  bool troubleTold_ = false;
  /// The lists are being set to a folder already read: their change events ask for nothing.
  bool following_ = false;
  std::vector<base::Subscription> subscriptions_;
};

}  // namespace nerolith::library
