#include "platform/linux/system/replacement_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>

#include "platform/failure.h"
#include "platform/linux/system/system_failure.h"

namespace nerolith::system {
namespace {

/// Short, as the target's own name may be as long as names can be.
std::string freshName(const std::string& target) {
  static std::atomic<unsigned> count{0};
  return folderOf(target) + "/.velmarion-" + std::to_string(getpid()) + "-" +
         std::to_string(++count);
}

/// What is there now; nothing when it is free.
std::optional<struct stat> oldFile(const std::string& target) {
  struct stat status;
  if (stat(target.c_str(), &status) != 0) {
    if (errno != ENOENT) throwSystemFailure(target);
    return std::nullopt;
  }
  if (!S_ISREG(status.st_mode))
    throwSystemFailure(target, S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
  if (!(status.st_mode & S_IWUSR)) throwSystemFailure(target, EACCES);
  if (access(target.c_str(), W_OK) != 0) throwSystemFailure(target);
  return status;
}

void takeAfter(const Descriptor& file, const struct stat& old) {
  const struct stat own = file.status();
  const bool sameOwner = own.st_uid == old.st_uid && own.st_gid == old.st_gid;
  if (!sameOwner && fchown(file.get(), old.st_uid, old.st_gid) != 0 &&
      fchown(file.get(), own.st_uid, old.st_gid) != 0 && errno != EPERM)
    throwSystemFailure(file.path());
  if (fchmod(file.get(), old.st_mode & 0777) != 0) throwSystemFailure(file.path());
}

}  // namespace

ReplacementFile::ReplacementFile(const std::string& path, mode_t newMode)
    : target_(linkTarget(path)), old_(oldFile(target_)) {
  openNameless(old_ ? 0600 : newMode);
}

ReplacementFile::ReplacementFile(const std::string& path, const std::string& bytes, mode_t newMode)
    : ReplacementFile(path, newMode) {
  file_->write(bytes);
  complete();
}

void ReplacementFile::complete() const {
  if (old_) takeAfter(*file_, *old_);
  file_->flush();
}

ReplacementFile::~ReplacementFile() {
  if (!name_.empty()) unlink(name_.c_str());
}

void ReplacementFile::openNameless(mode_t mode) {
  try {
    file_ = std::make_unique<Descriptor>(folderOf(target_), O_TMPFILE | O_WRONLY, mode);
  } catch (const platform::Failure& failure) {
    if (failure.code() != EOPNOTSUPP && failure.code() != EISDIR && failure.code() != EINVAL) throw;
    openNamed(mode);
  }
}

void ReplacementFile::openNamed(mode_t mode) {
  const std::string name = freshName(target_);
  file_ = std::make_unique<Descriptor>(name, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, mode);
  name_ = name;
}

void ReplacementFile::takePlace() {
  if (name_.empty()) {
    const std::string own = "/proc/self/fd/" + std::to_string(file_->get());
    const std::string name = freshName(target_);
    if (linkat(AT_FDCWD, own.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) != 0)
      throwSystemFailure(target_);
    name_ = name;
  }
  if (rename(name_.c_str(), target_.c_str()) != 0) throwSystemFailure(target_);
  name_.clear();
}

}  // namespace nerolith::system
