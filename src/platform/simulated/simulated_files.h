// Drives, folders and files in memory.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/file_system.h"
#include "platform/simulated/doorway.h"

namespace nerolith::platform::simulated {

/// What a file is to the player.
struct SimulatedFile {
  double duration = 180;    // seconds
  bool playable = true;     // whether a deck can render it
  bool runnable = true;     // whether a deck that rendered it can run it
  double modified = 44000;  // day number with fraction
  std::int64_t size = 1'000'000;
  bool readOnly = false;   // cannot be deleted or written while set
  std::string bytes = {};  // what SimulatedByteFiles reads
};

/// A machine's disks. With the separator '\\' it is a Windows machine: the drive "C:\", names
/// without regard to case. With '/' it is a Linux machine: the drive "/", names exact, those with a
/// dot in front hidden.
///
/// Trace: "files.cd PATH", "files.folders PATH", "files.files PATH PATTERNS", "files.drives",
/// "files.plain PATH", "files.delete PATH"; the rest are readings.
class SimulatedFiles : public FileSystem {
 public:
  SimulatedFiles(char separator, Doorway& doorway);

  // Scripting. Paths are absolute; the folders on the way are made.
  void addDrive(const std::string& root, const std::string& label);
  void removeDrive(const std::string& root);
  void addFolder(const std::string& path);
  void addFile(const std::string& path, const SimulatedFile& file = {});
  /// Removes a file, or a folder with all in it; nothing when it is missing.
  void remove(const std::string& path);
  /// A folder that is there but cannot be listed.
  void setUnreadable(const std::string& folder, bool unreadable = true);
  void setProgramFolder(const std::string& path);
  void setUserDataFolder(const std::string& path) { userDataFolder_ = path; }
  /// The file at `path`, without a door call; none: null. Valid until the files change.
  const SimulatedFile* find(const std::string& path) const;

  char separator() const override { return separator_; }
  std::string programFolder() const override { return programFolder_; }
  std::string userDataFolder() const override { return userDataFolder_; }
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
  struct Folder {
    std::string path;                            // without a separator at its end, unless a root
    std::map<std::string, std::string> folders;  // key of the name -> name
    std::map<std::string, SimulatedFile> files;
    std::map<std::string, std::string> fileNames;
    bool unreadable = false;
  };
  struct Place {
    std::string folder;
    std::string name;
  };

  std::string plain(std::string path) const;
  std::string key(const std::string& text) const;
  bool isRoot(const std::string& path) const;
  std::optional<std::string> rootOf(const std::string& path) const;
  Place split(const std::string& path) const;
  const Folder* folderAt(const std::string& path) const;
  const Folder& listable(const std::string& path) const;
  SimulatedFile& fileFor(const std::string& path);
  void act(std::string_view verb, std::string_view argument = {}) const;
  void look(std::string_view verb, std::string_view argument = {}) const;

  char separator_;
  Doorway& doorway_;
  std::string programFolder_;
  std::string userDataFolder_;
  std::string currentDirectory_;
  std::vector<controls::DriveEntry> drives_;
  std::map<std::string, std::string> currentFolders_;  // by drive root
  std::map<std::string, Folder> folders_;              // by key of the path
};

}  // namespace nerolith::platform::simulated
