// A folder for one test, and ways to fill it.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/windows/file_path.h"
#include "platform/windows/handles.h"
#include "platform/windows/wide_text.h"

namespace nerolith::windows {

/// Made empty, gone with all in it at the end. "/" in relative paths is taken as "\".
class ScratchFolder {
 public:
  ScratchFolder() {
    wchar_t temporary[MAX_PATH + 1];
    if (!GetTempPathW(MAX_PATH + 1, temporary)) throw std::runtime_error("no temporary folder");
    static int count = 0;
    root_ = tidyPath(utf8Text(temporary) + "\\nerolith-" + std::to_string(GetCurrentProcessId()) +
                         "-" + std::to_string(++count),
                     {});
    removeAll(root_);
    if (!CreateDirectoryW(systemPath(root_).c_str(), nullptr))
      throw std::runtime_error("no scratch folder " + root_);
  }
  ~ScratchFolder() { removeAll(root_); }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  /// The folder itself for "".
  std::string path(const std::string& relative = "") const {
    std::string full = relative.empty() ? root_ : root_ + '\\' + relative;
    for (char& c : full)
      if (c == '/') c = '\\';
    return full;
  }

  void addFolder(const std::string& relative) const {
    for (const std::string& folder : wayTo(path(relative)))
      CreateDirectoryW(systemPath(folder).c_str(), nullptr);
    if (GetFileAttributesW(systemPath(path(relative)).c_str()) == INVALID_FILE_ATTRIBUTES)
      throw std::runtime_error("no folder " + relative);
  }
  void addFile(const std::string& relative, const std::string& bytes = "") const {
    const std::string full = path(relative);
    if (relative.find('/') != std::string::npos) addFolder(relative.substr(0, relative.rfind('/')));
    const SystemHandle file(CreateFileW(systemPath(full).c_str(), GENERIC_WRITE, 0, nullptr,
                                        CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    DWORD written = 0;
    if (!file ||
        !WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr))
      throw std::runtime_error("no file " + relative);
  }
  void addAttributes(const std::string& relative, DWORD attributes) const {
    if (!SetFileAttributesW(systemPath(path(relative)).c_str(), attributes))
      throw std::runtime_error("no attributes for " + relative);
  }
  DWORD attributes(const std::string& relative) const {
    return GetFileAttributesW(systemPath(path(relative)).c_str());
  }
  /// `day` is a day number of local time.
  void setModified(const std::string& relative, double day) const {
    const auto ticks = static_cast<std::uint64_t>(std::llround((day + 109205) * 86400e7));
    const FILETIME local{static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
    SYSTEMTIME localTime, universalTime;
    FILETIME universal;
    FileTimeToSystemTime(&local, &localTime);
    TzSpecificLocalTimeToSystemTime(nullptr, &localTime, &universalTime);
    SystemTimeToFileTime(&universalTime, &universal);
    const SystemHandle file(CreateFileW(systemPath(path(relative)).c_str(), FILE_WRITE_ATTRIBUTES,
                                        0, nullptr, OPEN_EXISTING, 0, nullptr));
    if (!file || !SetFileTime(file.get(), nullptr, nullptr, &universal))
      throw std::runtime_error("no time for " + relative);
  }
  /// Names of all that lies in the folder itself, sorted.
  std::vector<std::string> names() const {
    std::vector<std::string> names;
    WIN32_FIND_DATAW entry;
    const FindHandle search(FindFirstFileW((systemPath(root_) + L"\\*").c_str(), &entry));
    do {
      const std::wstring name = entry.cFileName;
      if (search && name != L"." && name != L"..") names.push_back(utf8Text(name));
    } while (search && FindNextFileW(search.get(), &entry));
    std::sort(names.begin(), names.end());
    return names;
  }
  void remove(const std::string& relative) const { removeAll(path(relative)); }

 private:
  static void removeAll(const std::string& full) {
    const std::wstring asked = systemPath(full);
    const DWORD attributes = GetFileAttributesW(asked.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return;
    SetFileAttributesW(asked.c_str(), FILE_ATTRIBUTE_NORMAL);
    if (!(attributes & FILE_ATTRIBUTE_DIRECTORY)) {
      DeleteFileW(asked.c_str());
      return;
    }
    WIN32_FIND_DATAW entry;
    {
      const FindHandle search(FindFirstFileW((asked + L"\\*").c_str(), &entry));
      do {
        const std::wstring name = entry.cFileName;
        if (search && name != L"." && name != L"..") removeAll(full + '\\' + utf8Text(name));
      } while (search && FindNextFileW(search.get(), &entry));
    }
    RemoveDirectoryW(asked.c_str());
  }

  std::string root_;
};

}  // namespace nerolith::windows
