#include "platform/linux/system/descriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <utility>

#include "platform/linux/system/system_failure.h"

namespace nerolith::system {
namespace {

constexpr int kMostLinks = 40;  // as the system has it

}  // namespace

Descriptor::Descriptor(std::string path, int flags, mode_t mode)
    : path_(std::move(path)), value_(open(path_.c_str(), flags | O_CLOEXEC, mode)) {
  if (value_ < 0) throwSystemFailure(path_);
}

Descriptor::~Descriptor() { close(value_); }

struct stat Descriptor::status() const {
  struct stat status;
  if (fstat(value_, &status) != 0) throwSystemFailure(path_);
  return status;
}

void Descriptor::requireRegular() const {
  const mode_t mode = status().st_mode;
  if (!S_ISREG(mode)) throwSystemFailure(path_, S_ISDIR(mode) ? EISDIR : EINVAL);
}

std::string Descriptor::read(std::size_t most) const {
  std::string bytes(most, '\0');
  for (;;) {
    const ssize_t count = ::read(value_, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) throwSystemFailure(path_);
    bytes.resize(static_cast<std::size_t>(count));
    return bytes;
  }
}

void Descriptor::write(std::string_view bytes) const {
  while (!bytes.empty()) {
    const ssize_t count = ::write(value_, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) throwSystemFailure(path_);
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

void Descriptor::flush() const {
  if (fsync(value_) != 0) throwSystemFailure(path_);
}

std::string folderOf(const std::string& path) {
  const std::size_t end = path.rfind('/');
  return end == std::string::npos ? "." : end == 0 ? "/" : path.substr(0, end);
}

std::string linkTarget(const std::string& path) {
  std::string target = path;
  std::string next(PATH_MAX, '\0');
  for (int links = 0; links < kMostLinks; ++links) {
    const ssize_t length = readlink(target.c_str(), next.data(), next.size());
    if (length < 0) return target;
    const std::string led = next.substr(0, static_cast<std::size_t>(length));
    target = led.starts_with('/') ? led : folderOf(target).append("/").append(led);
  }
  throwSystemFailure(path, ELOOP);
}

}  // namespace nerolith::system
