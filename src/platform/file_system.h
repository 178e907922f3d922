// Drives, folders and files.
#pragma once

#include <string>
#include <vector>

#include "controls/file_lists.h"

namespace nerolith::platform {

/// Paths are texts with the platform's own separator, absolute unless said otherwise; bytes that
/// are no UTF-8 pass through unharmed where the platform allows them in names.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  /// '\\' or '/'.
  virtual char separator() const = 0;
  /// Folder of the running program, or where its installation put what came with it; without a
  /// separator at its end (unless it is a root).
  virtual std::string programFolder() const = 0;
  /// Folder for the user's own additions (a skin), which may not exist; never fails.
  virtual std::string userDataFolder() const = 0;

  virtual std::string currentDirectory() const = 0;
  virtual void setCurrentDirectory(const std::string& path) = 0;

  /// Volumes that a person would choose, in order.
  virtual std::vector<controls::DriveEntry> drives() const = 0;
  /// Root of the drive that `path` lies on, as `drives` gives it; fails when there is none.
  virtual std::string driveOf(const std::string& path) const = 0;
  /// The folder that is current on the drive with this root (its last shown folder, else the root).
  virtual std::string currentFolderOf(const std::string& driveRoot) const = 0;

  /// The folders from the root to `path`, both included, as full paths.
  virtual std::vector<std::string> ancestors(const std::string& path) const = 0;
  /// Names of the folders in `path`, sorted ignoring case, hidden ones left out. Fails when the
  /// folder cannot be read.
  virtual std::vector<std::string> folders(const std::string& path) const = 0;
  /// Names of the files in `path` that match one of the ";"-separated patterns, case ignored, "*"
  /// any run and "?" exactly one character, sorted ignoring case, hidden ones left out. Fails as
  /// `folders` does.
  virtual std::vector<std::string> files(const std::string& path,
                                         const std::string& patterns) const = 0;

  virtual bool fileExists(const std::string& path) const = 0;
  virtual bool folderExists(const std::string& path) const = 0;
  /// Local time of the last change as a day number (days since 30 December 1899) with fraction.
  virtual double lastModified(const std::string& path) const = 0;

  /// Clears read-only, hidden and system.
  virtual void makePlainArchive(const std::string& path) = 0;
  virtual void deleteFile(const std::string& path) = 0;
};

}  // namespace nerolith::platform
