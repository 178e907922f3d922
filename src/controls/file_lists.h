// The drive list, the folder list and the file list of a folder browser.
#pragma once

#include <string>
#include <vector>

#include "controls/control.h"

namespace nerolith::controls {

/// One drive that can be chosen: its root folder, and what the user reads.
struct DriveEntry {
  std::string root;
  std::string label;
  bool operator==(const DriveEntry&) const = default;
};

/// Setting another drive, by code or by the user, raises change; filling the list raises none.
class DriveListBox : public Control {
 public:
  const std::vector<DriveEntry>& drives() const { return drives_; }
  void setDrives(std::vector<DriveEntry> drives) { assign(drives_, std::move(drives)); }

  /// Root of the chosen drive; empty before the first choice.
  const std::string& drive() const { return drive_; }
  void setDrive(std::string root) {
    if (assign(drive_, std::move(root))) change.raise();
  }

  base::Signal<> change;

 private:
  std::vector<DriveEntry> drives_;
  std::string drive_;
};

/// Shows the way from the root to the current folder and the folders in it. Setting another path,
/// by code or by the user, raises change; filling in the folders raises none.
class DirListBox : public Control {
 public:
  const std::string& path() const { return path_; }
  void setPath(std::string path) {
    if (assign(path_, std::move(path))) change.raise();
  }

  /// The folders from the root down to and with the path itself, as full paths.
  const std::vector<std::string>& ancestors() const { return ancestors_; }
  /// The names of the folders in the path, in order.
  const std::vector<std::string>& folders() const { return folders_; }
  void setContents(std::vector<std::string> ancestors, std::vector<std::string> folders) {
    ancestors_ = std::move(ancestors);
    folders_ = std::move(folders);
    changed.raise();
  }

  base::Signal<> change;
  /// An entry was clicked (which does not open it).
  base::Signal<> click;

  void userClick() { click.raise(); }
  /// An entry was opened by double click or Enter.
  void userOpen(std::string path) { setPath(std::move(path)); }

 private:
  std::string path_;
  std::vector<std::string> ancestors_;
  std::vector<std::string> folders_;
};

/// Never shown: the source that the song list is filled from. Setting another path raises
/// pathChange; filling in the names raises none.
class FileListBox : public Control {
 public:
  const std::string& path() const { return path_; }
  void setPath(std::string path) {
    if (assign(path_, std::move(path))) pathChange.raise();
  }

  const std::string& pattern() const { return pattern_; }
  void setPattern(std::string pattern) { assign(pattern_, std::move(pattern)); }

  int count() const { return static_cast<int>(names_.size()); }
  const std::vector<std::string>& names() const { return names_; }
  void setNames(std::vector<std::string> names) { names_ = std::move(names); }

  base::Signal<> pathChange;

 private:
  std::string path_;
  std::string pattern_;
  std::vector<std::string> names_;
};

}  // namespace nerolith::controls
