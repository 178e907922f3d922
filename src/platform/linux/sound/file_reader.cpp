#include "platform/linux/sound/file_reader.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "platform/failure.h"

namespace nerolith::sound {
namespace {

using platform::Failure;

std::string reasonText(int error) {
  switch (error) {
    case ENOENT:
    case ENOTDIR:
      return "there is no such file";
    case EACCES:
    case EPERM:
      return "you have no permission to read it";
    case ENAMETOOLONG:
      return "its name is too long";
    case ELOOP:
      return "its link leads in a circle";
    default:
      return std::strerror(error);
  }
}

[[noreturn]] void fail(const std::string& path, const std::string& reason, int code) {
  throw Failure("Cannot play " + quotedName(path) + ": " + reason + ".", code);
}

base::FileStamp stampOf(const struct stat& status) {
  constexpr std::int64_t kSecond = 1'000'000'000;
  return {status.st_size, status.st_mtim.tv_sec * kSecond + status.st_mtim.tv_nsec, status.st_ino};
}

/// Length of the UTF-8 sequence that starts `text`, 0 if it is none.
std::size_t sequenceLength(std::string_view text) {
  const auto first = static_cast<unsigned char>(text[0]);
  const std::size_t length = first < 0x80                    ? 1
                             : first >= 0xC2 && first < 0xE0 ? 2
                             : first >= 0xE0 && first < 0xF0 ? 3
                             : first >= 0xF0 && first < 0xF5 ? 4
                                                             : 0;
  if (length == 0 || length > text.size()) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) return 0;
  }
  return length;
}

}  // namespace

std::string quotedName(const std::string& path) {
  const std::string name = path.substr(path.find_last_of('/') + 1);
  std::string shown = "\"";
  for (std::size_t i = 0; i < name.size();) {
    const std::size_t length = sequenceLength(std::string_view(name).substr(i));
    if (length == 0 || static_cast<unsigned char>(name[i]) < 0x20) {
      shown += '?';
      ++i;
    } else {
      shown += name.substr(i, length);
      i += length;
    }
  }
  return shown + "\"";
}

std::optional<base::FileStamp> stampOfFile(const std::string& path) {
  struct stat status {};
  if (path.find('\0') != std::string::npos || ::stat(path.c_str(), &status) != 0) return {};
  return stampOf(status);
}

FileReader::FileReader(const std::string& path, base::JobWatch& watch)
    : path_(path), watch_(watch) {
  if (path.find('\0') != std::string::npos) fail(path, reasonText(ENOENT), ENOENT);
  // Non-blocking, or a pipe without a writer would hold us for ever before we can see what it is.
  descriptor_ = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  if (descriptor_ < 0) {
    const int error = errno;
    fail(path, reasonText(error), error);
  }
  struct stat status {};
  const int error = ::fstat(descriptor_, &status) == 0 ? 0 : errno;
  const char* reason = error != 0                 ? "it cannot be examined"
                       : S_ISDIR(status.st_mode)  ? "it is a folder"
                       : !S_ISREG(status.st_mode) ? "it is not a regular file"
                       : status.st_size == 0      ? "the file is empty"
                                                  : nullptr;
  if (reason != nullptr) {
    ::close(descriptor_);
    fail(path, reason, error);
  }
  stamp_ = stampOf(status);
  ::posix_fadvise(descriptor_, 0, 0, POSIX_FADV_SEQUENTIAL);
}

FileReader::~FileReader() { ::close(descriptor_); }

std::int64_t FileReader::readAt(std::int64_t offset, std::span<std::uint8_t> out) const {
  std::size_t done = 0;
  while (done < out.size()) {
    if (aborted()) return -1;
    const ssize_t count = ::pread(descriptor_, out.data() + done, out.size() - done,
                                  offset + static_cast<std::int64_t>(done));
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return done > 0 ? static_cast<std::int64_t>(done) : -1;
    if (count == 0) break;
    done += static_cast<std::size_t>(count);
    watch_.progress.fetch_add(static_cast<std::uint64_t>(count), std::memory_order_relaxed);
  }
  return static_cast<std::int64_t>(done);
}

}  // namespace nerolith::sound
