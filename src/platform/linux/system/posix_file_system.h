// Drives, folders and files of a Linux machine.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "base/patient_caller.h"
#include "platform/file_system.h"

namespace nerolith::system {

/// Names are bytes, passed through as they are. Hidden is what begins with a dot; read-only what
/// its owner may not write. Calls that reach the disk give up after `patience` (an existence check
/// then answers no). Used on the user-interface thread.
class PosixFileSystem : public platform::FileSystem {
 public:
  explicit PosixFileSystem(std::chrono::milliseconds patience = std::chrono::seconds(5))
      : disk_(patience) {}

  char separator() const override { return '/'; }
  std::string programFolder() const override;
  std::string userDataFolder() const override;

  std::string currentDirectory() const override;
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

 private:
  mutable base::PatientCaller disk_;
  std::map<std::string, std::string> currentFolders_;  // by drive root
};

}  // namespace nerolith::system
