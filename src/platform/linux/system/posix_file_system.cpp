#include "platform/linux/system/posix_file_system.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>

#include "platform/failure.h"
#include "platform/linux/system/folder_listing.h"
#include "platform/linux/system/local_day.h"
#include "platform/linux/system/mounted_volumes.h"
#include "platform/linux/system/system_failure.h"
#include "platform/linux/system/user_folders.h"

namespace nerolith::system {
namespace {

/// Closed by its last owner: a call that was given up hands its file back long after.
std::shared_ptr<const int> ownDescriptor(int descriptor) {
  return {new int(descriptor), [](const int* owned) {
            close(*owned);
            delete owned;
          }};
}

struct stat statusOf(const std::string& path) {
  struct stat status;
  if (stat(path.c_str(), &status) != 0) throwSystemFailure(path);
  return status;
}

/// No doubled separators, none at the end.
std::string plain(const std::string& path) {
  std::string out;
  for (const char c : path)
    if (c != '/' || out.empty() || out.back() != '/') out += c;
  while (out.size() > 1 && out.back() == '/') out.pop_back();
  return out;
}

std::string textOf(const char* file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace

std::string PosixFileSystem::programFolder() const {
  std::string path(PATH_MAX, '\0');
  const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
  if (length <= 0) throwSystemFailure("/proc/self/exe");
  path.resize(static_cast<std::size_t>(length));
  return companionsFolder(path.substr(0, std::max<std::size_t>(path.rfind('/'), 1)));
}

std::string PosixFileSystem::userDataFolder() const { return dataFolder(); }

std::string PosixFileSystem::currentDirectory() const {
  return disk_.wait("The current folder", [] {
    const std::unique_ptr<char, decltype(&std::free)> path(getcwd(nullptr, 0), &std::free);
    if (!path) throwSystemFailure("The current folder");
    return std::string(path.get());
  });
}

void PosixFileSystem::setCurrentDirectory(const std::string& path) {
  // Only opened in the other thread: a change that was given up must not take place later.
  const auto folder = disk_.wait(path, [path] {
    const int descriptor = open(path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) throwSystemFailure(path);
    return ownDescriptor(descriptor);
  });
  if (fchdir(*folder) != 0) throwSystemFailure(path);
  currentFolders_[volumeOf(drives(), path)] = plain(path);
}

std::vector<controls::DriveEntry> PosixFileSystem::drives() const {
  return chooseVolumes(textOf("/proc/self/mountinfo"), homeFolder());
}

std::string PosixFileSystem::driveOf(const std::string& path) const {
  std::string root = volumeOf(drives(), path);
  if (root.empty()) throw platform::Failure(path + ": lies on no drive", ENOENT);
  return root;
}

std::string PosixFileSystem::currentFolderOf(const std::string& driveRoot) const {
  const std::vector<controls::DriveEntry> all = drives();
  const std::string root = plain(driveRoot);
  if (volumeOf(all, root) != root) throw platform::Failure(driveRoot + ": no such drive", ENOENT);
  if (const auto shown = currentFolders_.find(root); shown != currentFolders_.end())
    return folderExists(shown->second) ? shown->second : root;
  const std::string current = currentDirectory();
  return volumeOf(all, current) == root ? current : root;
}

std::vector<std::string> PosixFileSystem::ancestors(const std::string& path) const {
  const std::string target = plain(path);
  std::vector<std::string> way;
  if (target.starts_with('/')) way.emplace_back("/");
  for (std::size_t end = target.find('/', 1); end != std::string::npos;
       end = target.find('/', end + 1))
    way.push_back(target.substr(0, end));
  if (target != "/") way.push_back(target);
  return way;
}

std::vector<std::string> PosixFileSystem::folders(const std::string& path) const {
  return disk_.wait(path, [path] { return foldersIn(path); });
}

std::vector<std::string> PosixFileSystem::files(const std::string& path,
                                                const std::string& patterns) const {
  return disk_.wait(path, [path, patterns] { return filesIn(path, patterns); });
}

bool PosixFileSystem::fileExists(const std::string& path) const {
  try {
    return disk_.wait(path, [path] { return S_ISREG(statusOf(path).st_mode); });
  } catch (const platform::Failure&) {
    return false;
  }
}

bool PosixFileSystem::folderExists(const std::string& path) const {
  try {
    return disk_.wait(path, [path] { return S_ISDIR(statusOf(path).st_mode); });
  } catch (const platform::Failure&) {
    return false;
  }
}

double PosixFileSystem::lastModified(const std::string& path) const {
  const struct stat status = disk_.wait(path, [path] { return statusOf(path); });
  const LocalMoment moment = localMoment(status.st_mtim);
  return moment.day + moment.seconds / 86400;
}

void PosixFileSystem::makePlainArchive(const std::string& path) {
  disk_.wait(path, [path] {
    const mode_t mode = statusOf(path).st_mode & 07777;
    if (!(mode & S_IWUSR) && chmod(path.c_str(), mode | S_IWUSR) != 0) throwSystemFailure(path);
  });
}

void PosixFileSystem::deleteFile(const std::string& path) {
  disk_.wait(path, [path] {
    if (unlink(path.c_str()) != 0) throwSystemFailure(path);
  });
}

}  // namespace nerolith::system
