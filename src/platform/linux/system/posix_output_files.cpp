#include "platform/linux/system/posix_output_files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/failure.h"
#include "platform/linux/system/descriptor.h"
#include "platform/linux/system/replacement_file.h"
#include "platform/linux/system/system_failure.h"

namespace nerolith::system {
namespace {

using platform::Failure;

constexpr mode_t kNewFile = 0666;

/// Fails when another program writes the file. Disks that know no locks are taken as they are.
void lock(const Descriptor& file) {
  if (flock(file.get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
    throw Failure(file.path() + ": is being written by another program", EBUSY);
}

/// The descriptor itself may live a moment longer than the call that closed the file.
void unlock(const Descriptor& file) { flock(file.get(), LOCK_UN); }

void requireWritable(const Descriptor& file) {
  file.requireRegular();
  if (!(file.status().st_mode & S_IWUSR)) throwSystemFailure(file.path(), EACCES);
}

/// The file that is there already must be one that may be deleted.
void deleteOld(const std::string& path) {
  struct stat status;
  if (lstat(path.c_str(), &status) != 0) return;
  if (!S_ISLNK(status.st_mode)) {
    const Descriptor old(path, O_WRONLY | O_NONBLOCK);
    requireWritable(old);
    lock(old);
  }
  if (unlink(path.c_str()) != 0) throwSystemFailure(path);
}

std::shared_ptr<Descriptor> makeNew(const std::string& path) {
  deleteOld(path);
  auto file = std::make_shared<Descriptor>(path, O_RDWR | O_CREAT | O_EXCL, kNewFile);
  lock(*file);
  return file;
}

std::shared_ptr<Descriptor> openOld(const std::string& path) {
  auto file = std::make_shared<Descriptor>(path, O_RDWR | O_NONBLOCK);
  requireWritable(*file);
  lock(*file);
  return file;
}

void requireName(const Descriptor& file) {
  if (file.status().st_nlink == 0) throw Failure(file.path() + ": was removed", ENOENT);
}

void writeAll(const Descriptor& file, const std::string& bytes, std::int64_t offset) {
  for (std::size_t done = 0; done < bytes.size();) {
    const ssize_t count = pwrite(file.get(), bytes.data() + done, bytes.size() - done,
                                 static_cast<off_t>(offset + static_cast<std::int64_t>(done)));
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) throwSystemFailure(file.path());
    done += static_cast<std::size_t>(count);
  }
}

void addAll(const Descriptor& file, const std::string& bytes, std::int64_t size) {
  try {
    writeAll(file, bytes, size);
  } catch (const Failure&) {
    // What fitted of a piece is no use to anyone.
    if (ftruncate(file.get(), static_cast<off_t>(size)) != 0) throwSystemFailure(file.path());
    throw;
  }
}

std::string textOf(std::span<const std::byte> bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// Writes through a descriptor that calls left behind may still own.
class PosixOutputFile : public platform::OutputFile {
 public:
  PosixOutputFile(std::string path, std::shared_ptr<const Descriptor> file,
                  std::chrono::milliseconds patience)
      : path_(std::move(path)),
        file_(std::move(file)),
        size_(file_->status().st_size),
        disk_(patience),
        closing_(6 * patience) {}

  std::int64_t size() const override { return size_; }

  void append(std::span<const std::byte> bytes) override {
    disk_.wait(path_, [file = open(), text = textOf(bytes), size = size_, named = named()] {
      if (named) requireName(*file);
      addAll(*file, text, size);
    });
    size_ += static_cast<std::int64_t>(bytes.size());
  }

  void writeAt(std::int64_t offset, std::span<const std::byte> bytes) override {
    if (offset < 0 || offset + static_cast<std::int64_t>(bytes.size()) > size_)
      throwSystemFailure(path_, EINVAL);
    disk_.wait(path_, [file = open(), text = textOf(bytes), offset, named = named()] {
      if (named) requireName(*file);
      writeAll(*file, text, offset);
    });
  }

  void close() override {
    if (!file_) return;
    const auto file = std::exchange(file_, nullptr);
    closing_.wait(path_, finish(file));
  }

 protected:
  virtual bool named() const { return true; }
  virtual std::function<void()> finish(const std::shared_ptr<const Descriptor>& file) {
    return [file] {
      requireName(*file);
      file->flush();
      unlock(*file);
    };
  }

 private:
  std::shared_ptr<const Descriptor> open() const {
    if (!file_) throw Failure(path_ + ": is closed", EBADF);
    return file_;
  }

  std::string path_;
  std::shared_ptr<const Descriptor> file_;
  std::int64_t size_;
  base::PatientCaller disk_;
  base::PatientCaller closing_;
};

class PosixReplacement : public PosixOutputFile {
 public:
  PosixReplacement(const std::string& path, std::shared_ptr<ReplacementFile> replacement,
                   std::chrono::milliseconds patience)
      : PosixOutputFile(path, {replacement, &replacement->file()}, patience),
        replacement_(std::move(replacement)) {}

 protected:
  bool named() const override { return false; }
  std::function<void()> finish(const std::shared_ptr<const Descriptor>&) override {
    return [replacement = std::exchange(replacement_, nullptr)] {
      replacement->complete();
      replacement->takePlace();
    };
  }

 private:
  std::shared_ptr<ReplacementFile> replacement_;
};

}  // namespace

std::unique_ptr<platform::OutputFile> PosixOutputFiles::create(const std::string& path) {
  const auto file = disk_.wait(path, [path] { return makeNew(path); });
  return std::make_unique<PosixOutputFile>(path, file, patience_);
}

std::unique_ptr<platform::OutputFile> PosixOutputFiles::reopen(const std::string& path) {
  const auto file = disk_.wait(path, [path] { return openOld(path); });
  return std::make_unique<PosixOutputFile>(path, file, patience_);
}

std::unique_ptr<platform::OutputFile> PosixOutputFiles::replace(const std::string& path) {
  const auto file =
      disk_.wait(path, [path] { return std::make_shared<ReplacementFile>(path, kNewFile); });
  return std::make_unique<PosixReplacement>(path, file, patience_);
}

}  // namespace nerolith::system
