#include "platform/windows/windows_output_files.h"

#include <windows.h>

#include <utility>

#include "platform/failure.h"
#include "platform/windows/failure_text.h"
#include "platform/windows/file_path.h"
#include "platform/windows/open_file.h"
#include "platform/windows/replacement_file.h"

namespace nerolith::windows {
namespace {

using platform::Failure;

/// Nobody may delete the file, rename it, or remove its folder meanwhile.
constexpr DWORD kOthersRead = FILE_SHARE_READ;

std::shared_ptr<OpenFile> makeNew(const std::string& path) {
  const std::wstring asked = systemPath(path);
  if (GetFileAttributesW(asked.c_str()) != INVALID_FILE_ATTRIBUTES && !DeleteFileW(asked.c_str()))
    throwLastError(path);
  return std::make_shared<OpenFile>(path, GENERIC_READ | GENERIC_WRITE, CREATE_NEW, kOthersRead);
}

std::shared_ptr<OpenFile> openOld(const std::string& path) {
  const DWORD attributes = GetFileAttributesW(systemPath(path).c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY))
    throwFailure(path, ERROR_ACCESS_DENIED);
  return std::make_shared<OpenFile>(path, GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING, kOthersRead);
}

void addAll(const OpenFile& file, const std::string& bytes, std::uint64_t size) {
  file.moveTo(size);
  try {
    file.write(bytes);
  } catch (const Failure&) {
    file.cut(size);  // what fitted of a piece is no use to anyone
    throw;
  }
}

std::string textOf(std::span<const std::byte> bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// Writes through a handle that calls left behind may still own.
class WindowsOutputFile : public platform::OutputFile {
 public:
  WindowsOutputFile(std::string path, std::shared_ptr<const OpenFile> file,
                    std::chrono::milliseconds patience)
      : path_(std::move(path)),
        file_(std::move(file)),
        size_(static_cast<std::int64_t>(file_->size())),
        disk_(patience),
        closing_(6 * patience) {}

  std::int64_t size() const override { return size_; }

  void append(std::span<const std::byte> bytes) override {
    disk_.wait(path_, [file = open(), text = textOf(bytes), size = size_] {
      addAll(*file, text, static_cast<std::uint64_t>(size));
    });
    size_ += static_cast<std::int64_t>(bytes.size());
  }

  void writeAt(std::int64_t offset, std::span<const std::byte> bytes) override {
    if (offset < 0 || offset + static_cast<std::int64_t>(bytes.size()) > size_)
      throwFailure(path_, ERROR_HANDLE_EOF);
    disk_.wait(path_, [file = open(), text = textOf(bytes), offset] {
      file->moveTo(static_cast<std::uint64_t>(offset));
      file->write(text);
    });
  }

  void close() override {
    if (!file_) return;
    const auto file = std::exchange(file_, nullptr);
    closing_.wait(path_, finish(file));
  }

 protected:
  virtual std::function<void()> finish(const std::shared_ptr<const OpenFile>& file) {
    return [file] { file->flush(); };
  }

 private:
  std::shared_ptr<const OpenFile> open() const {
    if (!file_) throw Failure(path_ + ": is closed", ERROR_INVALID_HANDLE);
    return file_;
  }

  std::string path_;
  std::shared_ptr<const OpenFile> file_;
  std::int64_t size_;
  base::PatientCaller disk_;
  base::PatientCaller closing_;
};

class WindowsReplacement : public WindowsOutputFile {
 public:
  WindowsReplacement(const std::string& path, std::shared_ptr<ReplacementFile> replacement,
                     std::chrono::milliseconds patience)
      : WindowsOutputFile(path, {replacement, &replacement->file()}, patience),
        replacement_(std::move(replacement)) {}

 protected:
  std::function<void()> finish(const std::shared_ptr<const OpenFile>&) override {
    return [replacement = std::exchange(replacement_, nullptr)] {
      replacement->complete();
      replacement->takePlace();
    };
  }

 private:
  std::shared_ptr<ReplacementFile> replacement_;
};

}  // namespace

std::unique_ptr<platform::OutputFile> WindowsOutputFiles::create(const std::string& path) {
  const auto file = disk_.wait(path, [tidy = files_.tidy(path)] { return makeNew(tidy); });
  return std::make_unique<WindowsOutputFile>(path, file, patience_);
}

std::unique_ptr<platform::OutputFile> WindowsOutputFiles::reopen(const std::string& path) {
  const auto file = disk_.wait(path, [tidy = files_.tidy(path)] { return openOld(tidy); });
  return std::make_unique<WindowsOutputFile>(path, file, patience_);
}

std::unique_ptr<platform::OutputFile> WindowsOutputFiles::replace(const std::string& path) {
  const auto file = disk_.wait(
      path, [tidy = files_.tidy(path)] { return std::make_shared<ReplacementFile>(tidy); });
  return std::make_unique<WindowsReplacement>(path, file, patience_);
}

}  // namespace nerolith::windows
