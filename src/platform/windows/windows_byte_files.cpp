#include "platform/windows/windows_byte_files.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <memory>
#include <optional>

#include "platform/failure.h"
#include "platform/windows/failure_text.h"
#include "platform/windows/file_path.h"
#include "platform/windows/open_file.h"
#include "platform/windows/replacement_file.h"

namespace nerolith::windows {
namespace {

constexpr std::size_t kBlock = 1 << 20;

void makeEmpty(const std::string& path) {
  try {
    OpenFile(path, GENERIC_WRITE, CREATE_NEW).flush();
  } catch (const platform::Failure& failure) {
    if (failure.code() != ERROR_FILE_EXISTS && failure.code() != ERROR_ALREADY_EXISTS) throw;
    if (GetFileAttributesW(systemPath(path).c_str()) & FILE_ATTRIBUTE_DIRECTORY) throw;
  }
}

void addBytes(const std::string& path, const std::string& bytes) {
  const OpenFile file(path, GENERIC_WRITE, OPEN_EXISTING);
  const DWORD attributes = GetFileAttributesW(systemPath(path).c_str());
  if (attributes & FILE_ATTRIBUTE_READONLY) throwFailure(path, ERROR_ACCESS_DENIED);
  const std::uint64_t before = file.size();
  file.moveTo(before);
  try {
    file.write(bytes);
    file.flush();
  } catch (const platform::Failure&) {
    file.cut(before);
    throw;
  }
}

/// What tells a file from all others on the machine; nothing when there is none.
std::optional<std::array<DWORD, 3>> identityOf(const std::string& path) {
  constexpr DWORD kAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const SystemHandle file(CreateFileW(systemPath(path).c_str(), FILE_READ_ATTRIBUTES, kAll, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  BY_HANDLE_FILE_INFORMATION known;
  if (!file || !GetFileInformationByHandle(file.get(), &known)) return std::nullopt;
  return std::array{known.dwVolumeSerialNumber, known.nFileIndexHigh, known.nFileIndexLow};
}

}  // namespace

void WindowsByteFiles::read(const std::string& path, const TakeBlock& take) const {
  const auto file = reading_.wait(path, [tidy = files_.tidy(path)] {
    return std::make_shared<const OpenFile>(tidy, GENERIC_READ, OPEN_EXISTING);
  });
  for (;;) {
    const std::string block = reading_.wait(path, [file] { return file->read(kBlock); });
    if (block.empty()) return;
    take(block);
  }
}

std::uint64_t WindowsByteFiles::size(const std::string& path) const {
  return reading_.wait(path, [tidy = files_.tidy(path)] {
    return OpenFile(tidy, GENERIC_READ, OPEN_EXISTING).size();
  });
}

bool WindowsByteFiles::same(const std::string& path, const std::string& other) const {
  return reading_.wait(path, [one = files_.tidy(path), two = files_.tidy(other)] {
    const auto first = identityOf(one), second = identityOf(two);
    return first && first == second;
  });
}

std::string WindowsByteFiles::readEnd(const std::string& path, std::size_t most) const {
  return reading_.wait(path, [tidy = files_.tidy(path), most] {
    const OpenFile file(tidy, GENERIC_READ, OPEN_EXISTING);
    const std::uint64_t size = file.size();
    file.moveTo(size - std::min<std::uint64_t>(size, most));
    return file.read(most);
  });
}

void WindowsByteFiles::create(const std::string& path) {
  writing_.wait(path, [tidy = files_.tidy(path)] { makeEmpty(tidy); });
}

void WindowsByteFiles::replace(const std::string& path, const std::string& bytes) {
  // What was given up is dropped by its thread and takes no one's place later.
  const auto written = writing_.wait(path, [tidy = files_.tidy(path), bytes] {
    return std::make_shared<ReplacementFile>(tidy, bytes);
  });
  writing_.wait(path, [written] { written->takePlace(); });
}

void WindowsByteFiles::append(const std::string& path, const std::string& bytes) {
  writing_.wait(path, [tidy = files_.tidy(path), bytes] { addBytes(tidy, bytes); });
}

}  // namespace nerolith::windows
