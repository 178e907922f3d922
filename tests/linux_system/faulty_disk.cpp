#include "linux_system/faulty_disk.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>

namespace nerolith::system {
namespace {

std::atomic<bool> counting{false};
std::atomic<bool> namelessRefused{false};
std::atomic<int> counted{0};
std::atomic<int> struckAt{0};
std::atomic<FaultyDisk::Fault> kind{FaultyDisk::Fault::None};

/// Whether the fault strikes the call that begins now.
bool strikes() { return counting && ++counted == struckAt; }

/// What a call that was struck answers.
int struck() {
  if (kind == FaultyDisk::Fault::Kills) kill(getpid(), SIGKILL);
  errno = ENOSPC;
  return -1;
}

}  // namespace

FaultyDisk::FaultyDisk(Fault fault, int n) {
  counted = 0;
  struckAt = n;
  kind = fault;
  counting = true;
}

FaultyDisk::~FaultyDisk() {
  counting = false;
  namelessRefused = false;
}

int FaultyDisk::calls() const { return counted; }

void FaultyDisk::refuseNamelessFiles() { namelessRefused = true; }

}  // namespace nerolith::system

// They stand before the system's own in this program.
extern "C" {

using nerolith::system::strikes;
using nerolith::system::struck;

int open(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = (flags & (O_CREAT | __O_TMPFILE)) ? va_arg(rest, mode_t) : 0;
  va_end(rest);
  if ((flags & O_TMPFILE) == O_TMPFILE && nerolith::system::namelessRefused) {
    errno = EOPNOTSUPP;
    return -1;
  }
  if ((flags & O_ACCMODE) != O_RDONLY && strikes()) return struck();
  return static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

ssize_t write(int file, const void* bytes, size_t count) {
  if (!strikes()) return syscall(SYS_write, file, bytes, count);
  syscall(SYS_write, file, bytes, count / 2);
  return struck();
}

int fsync(int file) { return strikes() ? struck() : static_cast<int>(syscall(SYS_fsync, file)); }

int fchmod(int file, mode_t mode) noexcept {
  return strikes() ? struck() : static_cast<int>(syscall(SYS_fchmod, file, mode));
}

int ftruncate(int file, off_t size) noexcept {
  return strikes() ? struck() : static_cast<int>(syscall(SYS_ftruncate, file, size));
}

int linkat(int from, const char* path, int to, const char* name, int flags) noexcept {
  if (strikes()) return struck();
  return static_cast<int>(syscall(SYS_linkat, from, path, to, name, flags));
}

int rename(const char* from, const char* to) noexcept {
  return strikes() ? struck() : static_cast<int>(syscall(SYS_rename, from, to));
}

}  // extern "C"
