#include "platform/windows/open_file.h"

#include <algorithm>
#include <utility>

#include "platform/windows/failure_text.h"
#include "platform/windows/file_path.h"

namespace nerolith::windows {
namespace {

constexpr std::size_t kMostAtOnce = 1 << 24;

}  // namespace

OpenFile::OpenFile(std::string path, DWORD access, DWORD disposition, DWORD sharing)
    : path_(std::move(path)),
      handle_(CreateFileW(systemPath(path_).c_str(), access, sharing, nullptr, disposition,
                          FILE_ATTRIBUTE_NORMAL, nullptr)) {
  if (!handle_) throwLastError(path_);
  if (GetFileType(handle_.get()) != FILE_TYPE_DISK) throwFailure(path_, ERROR_BAD_FILE_TYPE);
}

std::uint64_t OpenFile::size() const {
  LARGE_INTEGER size;
  if (!GetFileSizeEx(handle_.get(), &size)) throwLastError(path_);
  return static_cast<std::uint64_t>(size.QuadPart);
}

void OpenFile::moveTo(std::uint64_t position) const {
  LARGE_INTEGER distance;
  distance.QuadPart = static_cast<LONGLONG>(position);
  if (!SetFilePointerEx(handle_.get(), distance, nullptr, FILE_BEGIN)) throwLastError(path_);
}

std::string OpenFile::read(std::size_t most) const {
  std::string bytes(std::min(most, kMostAtOnce), '\0');
  DWORD count = 0;
  if (!ReadFile(handle_.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr))
    throwLastError(path_);
  bytes.resize(count);
  return bytes;
}

void OpenFile::write(std::string_view bytes) const {
  while (!bytes.empty()) {
    const auto asked = static_cast<DWORD>(std::min(bytes.size(), kMostAtOnce));
    DWORD count = 0;
    if (!WriteFile(handle_.get(), bytes.data(), asked, &count, nullptr)) throwLastError(path_);
    if (count == 0) throwFailure(path_, ERROR_WRITE_FAULT);
    bytes.remove_prefix(count);
  }
}

void OpenFile::flush() const {
  if (!FlushFileBuffers(handle_.get())) throwLastError(path_);
}

void OpenFile::cut(std::uint64_t size) const {
  moveTo(size);
  if (!SetEndOfFile(handle_.get())) throwLastError(path_);
}

void OpenFile::deleteWhenClosed(bool deleting) const {
  FILE_DISPOSITION_INFO disposition{};
  disposition.DeleteFile = deleting ? TRUE : FALSE;
  if (!SetFileInformationByHandle(handle_.get(), FileDispositionInfo, &disposition,
                                  sizeof disposition))
    throwLastError(path_);
}

}  // namespace nerolith::windows
