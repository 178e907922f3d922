// Drives, folders and files of a Windows machine.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "base/patient_caller.h"
#include "platform/file_system.h"

namespace nerolith::windows {

/// Paths of any length, on drives ("C:\Music") and shares ("\\server\music"), with "/" taken as
/// "\". A share lies on no drive. Failures carry the system's error number; calls that reach the
/// disk give up after five seconds (an existence check then answers no). Used on the user-interface
/// thread.
///
/// The current folder is the player's own, starting with the process's: Windows would lock a
/// process's current folder, and nobody could rename the folder shown or take out its disk.
class WindowsFileSystem : public platform::FileSystem {
 public:
  /// From now on a drive without a disk is an error to the whole program, not a question to the
  /// user.
  WindowsFileSystem();

  char separator() const override { return '\\'; }
  std::string programFolder() const override;
  std::string userDataFolder() const override;

  std::string currentDirectory() const override { return current_; }
  void setCurrentDirectory(const std::string& path) override;

  std::vector<controls::DriveEntry> drives() const override;
  std::string driveOf(const std::string& path) const override;
  std::string currentFolderOf(const std::string& driveRoot) const override;

  std::vector<std::string> ancestors(const std::string& path) const override;
  std::vector<std::string> folders(const std::string& path) const override;
  std::vector<std::string> files(const std::string& path,
                                 const std::string& patterns) const override;

  bool fileExists(const std::string& path) const override;
  bool folderExists(const std::string& path) const override;
  double lastModified(const std::string& path) const override;

  void makePlainArchive(const std::string& path) override;
  void deleteFile(const std::string& path) override;

  /// As `tidyPath`, from the current folder.
  std::string tidy(const std::string& path) const;

 private:
  unsigned long attributesOf(const std::string& path) const;

  mutable base::PatientCaller disk_;
  std::string current_;
  std::map<std::string, std::string> currentFolders_;  // by drive root
};

}  // namespace nerolith::windows
