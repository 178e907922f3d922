#include "platform/linux/system/whole_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "platform/linux/system/system_failure.h"

namespace nerolith::system {
namespace {

constexpr int kMostSetAside = 10000;

class Descriptor {
 public:
  Descriptor(const std::string& path, int flags, mode_t mode = 0)
      : value_(open(path.c_str(), flags | O_CLOEXEC, mode)) {
    if (value_ < 0) throwSystemFailure(path);
  }
  ~Descriptor() { close(value_); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int get() const { return value_; }

 private:
  int value_;
};

std::string folderOf(const std::string& path) {
  const std::size_t end = path.rfind('/');
  return end == std::string::npos ? "." : end == 0 ? "/" : path.substr(0, end);
}

void makeFolders(const std::string& path) {
  if (mkdir(path.c_str(), 0700) == 0 || errno == EEXIST) return;
  if (errno != ENOENT) throwSystemFailure(path);
  makeFolders(folderOf(path));
  if (mkdir(path.c_str(), 0700) != 0 && errno != EEXIST) throwSystemFailure(path);
}

/// Where a chain of links ends; the path itself when there is nothing yet.
std::string linkTarget(const std::string& path) {
  const std::unique_ptr<char, decltype(&std::free)> target(realpath(path.c_str(), nullptr),
                                                           &std::free);
  return target ? std::string(target.get()) : path;
}

void writeAll(const Descriptor& file, const std::string& path, const std::string& bytes) {
  for (std::size_t done = 0; done < bytes.size();) {
    const ssize_t count = write(file.get(), bytes.data() + done, bytes.size() - done);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) throwSystemFailure(path);
    done += static_cast<std::size_t>(count);
  }
  if (fsync(file.get()) != 0) throwSystemFailure(path);
}

/// A file that goes again unless it was kept.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string& target)
      : path_(target + ".new-" + std::to_string(getpid())) {}
  ~TemporaryFile() {
    if (!kept_) unlink(path_.c_str());
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  const std::string& path() const { return path_; }

  void becomes(const std::string& target) {
    if (rename(path_.c_str(), target.c_str()) != 0) throwSystemFailure(target);
    kept_ = true;
  }

 private:
  std::string path_;
  bool kept_ = false;
};

}  // namespace

std::optional<std::string> readWhole(const std::string& path, std::size_t limit) {
  // Without waiting: a pipe in the file's place would never answer.
  const Descriptor file(path, O_RDONLY | O_NONBLOCK);
  struct stat status;
  if (fstat(file.get(), &status) != 0) throwSystemFailure(path);
  if (!S_ISREG(status.st_mode)) return std::nullopt;
  std::string bytes;
  char block[16384];
  for (;;) {
    const ssize_t count = read(file.get(), block, sizeof block);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) throwSystemFailure(path);
    if (count == 0) return bytes;
    bytes.append(block, static_cast<std::size_t>(count));
    if (bytes.size() > limit) return std::nullopt;
  }
}

void replaceWhole(const std::string& path, const std::string& bytes) {
  makeFolders(folderOf(path));
  const std::string target = linkTarget(path);
  struct stat status;
  const mode_t mode = stat(target.c_str(), &status) == 0 ? status.st_mode & 0777 : 0600;
  TemporaryFile temporary(target);
  {
    const Descriptor file(temporary.path(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW, 0600);
    writeAll(file, temporary.path(), bytes);
    if (fchmod(file.get(), mode) != 0) throwSystemFailure(temporary.path());
  }
  temporary.becomes(target);
}

std::string setFileAside(const std::string& path, const std::string& suffix) {
  for (int n = 1; n < kMostSetAside; ++n) {
    const std::string aside = path + "." + suffix + "-" + std::to_string(n);
    struct stat status;
    if (lstat(aside.c_str(), &status) == 0) continue;
    if (rename(path.c_str(), aside.c_str()) != 0) throwSystemFailure(path);
    return aside;
  }
  throwSystemFailure(path, EEXIST);
}

}  // namespace nerolith::system
