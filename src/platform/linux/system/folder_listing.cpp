#include "platform/linux/system/folder_listing.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <memory>

#include "base/file_pattern.h"
#include "platform/linux/system/system_failure.h"

namespace nerolith::system {
namespace {

struct CloseFolder {
  void operator()(DIR* folder) const { closedir(folder); }
};

/// What an entry is; a link is what it leads to. Only links, and disks that do not say, cost a
/// look at the entry itself.
mode_t kindOf(DIR* folder, const dirent& entry) {
  if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return DTTOIF(entry.d_type);
  struct stat status;
  if (fstatat(dirfd(folder), entry.d_name, &status, 0) != 0) return 0;
  return status.st_mode & S_IFMT;
}

template <typename Wanted>
std::vector<std::string> namesIn(const std::string& path, mode_t kind, Wanted wanted) {
  const std::unique_ptr<DIR, CloseFolder> folder(opendir(path.c_str()));
  if (!folder) throwSystemFailure(path);
  std::vector<std::string> names;
  for (;;) {
    errno = 0;
    const dirent* entry = readdir(folder.get());
    if (!entry) break;
    if (entry->d_name[0] == '.' || !wanted(entry->d_name)) continue;
    if (kindOf(folder.get(), *entry) == kind) names.emplace_back(entry->d_name);
  }
  if (errno != 0) throwSystemFailure(path);
  base::sortNames(names);
  return names;
}

}  // namespace

std::vector<std::string> foldersIn(const std::string& path) {
  return namesIn(path, S_IFDIR, [](const char*) { return true; });
}

std::vector<std::string> filesIn(const std::string& path, const std::string& patterns) {
  const base::FilePattern pattern(patterns);
  return namesIn(path, S_IFREG, [&](const char* name) { return pattern.matches(name); });
}

}  // namespace nerolith::system
