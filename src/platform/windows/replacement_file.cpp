#include "platform/windows/replacement_file.h"

#include <windows.h>

#include <atomic>
#include <vector>

#include "platform/windows/failure_text.h"
#include "platform/windows/file_path.h"
#include "platform/windows/handles.h"
#include "platform/windows/open_file.h"
#include "platform/windows/wide_text.h"

namespace nerolith::windows {
namespace {

constexpr int kTries = 10;
constexpr DWORD kBetweenTries = 20;  // ms

/// What a file keeps when its contents are replaced.
constexpr DWORD kKept = FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                        FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

DWORD attributesOf(const std::string& path) { return GetFileAttributesW(systemPath(path).c_str()); }

std::string linkTarget(const std::string& path) {
  const DWORD attributes = attributesOf(path);
  if (attributes == INVALID_FILE_ATTRIBUTES || !(attributes & FILE_ATTRIBUTE_REPARSE_POINT))
    return path;
  const OpenFile file(path, FILE_READ_ATTRIBUTES, OPEN_EXISTING);
  std::wstring target(32768, L'\0');
  const DWORD length = GetFinalPathNameByHandleW(
      file.get(), target.data(), static_cast<DWORD>(target.size()), FILE_NAME_NORMALIZED);
  if (length == 0 || length >= target.size()) throwLastError(path);
  return tidyPath(utf8Text({target.data(), length}), {});
}

std::string freshName(const std::string& target) {
  static std::atomic<unsigned> count{0};
  const std::vector<std::string> way = wayTo(target);
  std::string folder = way.size() > 1 ? way[way.size() - 2] : way.front();
  if (!folder.ends_with('\\')) folder += '\\';
  return folder + "velmarion-" + std::to_string(GetCurrentProcessId()) + "-" +
         std::to_string(++count) + ".new";
}

bool inUse(DWORD error) {
  return error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION ||
         error == ERROR_LOCK_VIOLATION;
}

}  // namespace

ReplacementFile::ReplacementFile(const std::string& path, const std::string& bytes)
    : ReplacementFile(path) {
  file_->write(bytes);
  complete();
}

ReplacementFile::ReplacementFile(const std::string& path)
    : target_(linkTarget(path)), name_(freshName(target_)) {
  const DWORD old = attributesOf(target_);
  if (old != INVALID_FILE_ATTRIBUTES &&
      (old & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)))
    throwFailure(target_, ERROR_ACCESS_DENIED);
  file_ = std::make_unique<OpenFile>(name_, GENERIC_WRITE | DELETE, CREATE_ALWAYS);
  file_->deleteWhenClosed(true);
}

void ReplacementFile::complete() {
  file_->flush();
  file_->deleteWhenClosed(false);
  file_.reset();
  const DWORD old = attributesOf(target_);
  if (old == INVALID_FILE_ATTRIBUTES) return;
  if (old & kKept) SetFileAttributesW(systemPath(name_).c_str(), old & kKept);
  takeAfterOld();
}

ReplacementFile::~ReplacementFile() {
  file_.reset();
  if (!name_.empty()) DeleteFileW(systemPath(name_).c_str());
}

/// Rights that were given to the old file by hand; where they cannot be read or set (a memory
/// stick, a share), the folder's hold.
void ReplacementFile::takeAfterOld() const {
  const std::wstring old = systemPath(target_);
  DWORD length = 0;
  GetFileSecurityW(old.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &length);
  std::vector<unsigned char> rights(length);
  if (length == 0 ||
      !GetFileSecurityW(old.c_str(), DACL_SECURITY_INFORMATION, rights.data(), length, &length))
    return;
  SetFileSecurityW(systemPath(name_).c_str(), DACL_SECURITY_INFORMATION, rights.data());
}

void ReplacementFile::takePlace() {
  const std::wstring from = systemPath(name_), to = systemPath(target_);
  for (int tries = 1;; ++tries) {
    if (MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
      break;
    const DWORD error = GetLastError();
    if (tries == kTries || !inUse(error)) throwFailure(target_, error);
    Sleep(kBetweenTries);
  }
  name_.clear();
}

}  // namespace nerolith::windows
