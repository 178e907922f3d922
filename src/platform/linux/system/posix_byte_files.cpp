#include "platform/linux/system/posix_byte_files.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <memory>

#include "platform/failure.h"
#include "platform/linux/system/descriptor.h"
#include "platform/linux/system/replacement_file.h"
#include "platform/linux/system/system_failure.h"

namespace nerolith::system {
namespace {

constexpr std::size_t kBlock = 1 << 20;
constexpr mode_t kNewFile = 0666;

/// Without waiting: a pipe in the file's place would never answer.
std::shared_ptr<const Descriptor> openForReading(const std::string& path) {
  auto file = std::make_shared<const Descriptor>(path, O_RDONLY | O_NONBLOCK);
  file->requireRegular();
  return file;
}

void makeEmpty(const std::string& path) {
  try {
    const Descriptor file(linkTarget(path), O_WRONLY | O_CREAT | O_EXCL, kNewFile);
    file.flush();
  } catch (const platform::Failure& failure) {
    if (failure.code() != EEXIST) throw;
    openForReading(path);
  }
}

void addBytes(const std::string& path, const std::string& bytes) {
  const Descriptor file(path, O_WRONLY | O_APPEND | O_NONBLOCK);
  file.requireRegular();
  const struct stat before = file.status();
  if (!(before.st_mode & S_IWUSR)) throwSystemFailure(path, EACCES);
  try {
    file.write(bytes);
    file.flush();
  } catch (const platform::Failure&) {
    if (ftruncate(file.get(), before.st_size) != 0) throwSystemFailure(path);
    throw;
  }
}

}  // namespace

void PosixByteFiles::read(const std::string& path, const TakeBlock& take) const {
  const auto file = reading_.wait(path, [path] { return openForReading(path); });
  for (;;) {
    const std::string block = reading_.wait(path, [file] { return file->read(kBlock); });
    if (block.empty()) return;
    take(block);
  }
}

std::uint64_t PosixByteFiles::size(const std::string& path) const {
  return reading_.wait(
      path, [path] { return static_cast<std::uint64_t>(openForReading(path)->status().st_size); });
}

bool PosixByteFiles::same(const std::string& path, const std::string& other) const {
  return reading_.wait(path, [path, other] {
    struct stat one, two;
    return stat(path.c_str(), &one) == 0 && stat(other.c_str(), &two) == 0 &&
           one.st_dev == two.st_dev && one.st_ino == two.st_ino;
  });
}

std::string PosixByteFiles::readEnd(const std::string& path, std::size_t most) const {
  return reading_.wait(path, [path, most] {
    const auto file = openForReading(path);
    const auto size = static_cast<std::size_t>(file->status().st_size);
    const auto start = static_cast<off_t>(size - std::min(size, most));
    if (lseek(file->get(), start, SEEK_SET) < 0) throwSystemFailure(path);
    return file->read(most);
  });
}

void PosixByteFiles::create(const std::string& path) {
  writing_.wait(path, [path] { makeEmpty(path); });
}

void PosixByteFiles::replace(const std::string& path, const std::string& bytes) {
  // What was given up is dropped by its thread and takes no one's place later.
  const auto written = writing_.wait(
      path, [path, bytes] { return std::make_shared<ReplacementFile>(path, bytes, kNewFile); });
  writing_.wait(path, [written] { written->takePlace(); });
}

void PosixByteFiles::append(const std::string& path, const std::string& bytes) {
  writing_.wait(path, [path, bytes] { addBytes(path, bytes); });
}

}  // namespace nerolith::system
