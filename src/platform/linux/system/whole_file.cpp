#include "platform/linux/system/whole_file.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>

#include "platform/linux/system/descriptor.h"
#include "platform/linux/system/replacement_file.h"
#include "platform/linux/system/system_failure.h"

namespace nerolith::system {
namespace {

constexpr int kMostSetAside = 10000;
constexpr std::size_t kBlock = 16384;
constexpr mode_t kUsersOwn = 0600;

void makeFolders(const std::string& path) {
  if (mkdir(path.c_str(), 0700) == 0 || errno == EEXIST) return;
  if (errno != ENOENT) throwSystemFailure(path);
  makeFolders(folderOf(path));
  if (mkdir(path.c_str(), 0700) != 0 && errno != EEXIST) throwSystemFailure(path);
}

}  // namespace

std::optional<std::string> readWhole(const std::string& path, std::size_t limit) {
  // Without waiting: a pipe in the file's place would never answer.
  const Descriptor file(path, O_RDONLY | O_NONBLOCK);
  if (!S_ISREG(file.status().st_mode)) return std::nullopt;
  std::string bytes;
  for (;;) {
    const std::string block = file.read(kBlock);
    if (block.empty()) return bytes;
    bytes += block;
    if (bytes.size() > limit) return std::nullopt;
  }
}

void replaceWhole(const std::string& path, const std::string& bytes) {
  makeFolders(folderOf(path));
  ReplacementFile(path, bytes, kUsersOwn).takePlace();
}

std::string setFileAside(const std::string& path, const std::string& suffix) {
  for (int n = 1; n < kMostSetAside; ++n) {
    std::string aside = path;
    aside.append(".").append(suffix).append("-").append(std::to_string(n));
    struct stat status;
    if (lstat(aside.c_str(), &status) == 0) continue;
    if (rename(path.c_str(), aside.c_str()) != 0) throwSystemFailure(path);
    return aside;
  }
  throwSystemFailure(path, EEXIST);
}

}  // namespace nerolith::system
