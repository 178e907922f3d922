#include "platform/windows/folder_listing.h"

#include "base/file_pattern.h"
#include "platform/windows/failure_text.h"
#include "platform/windows/file_path.h"
#include "platform/windows/handles.h"
#include "platform/windows/wide_text.h"

namespace nerolith::windows {
namespace {

bool isFolder(DWORD attributes) {
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::wstring everythingIn(const std::string& path) {
  std::wstring all = systemPath(path);
  if (all.back() != L'\\') all += L'\\';
  return all + L'*';
}

template <typename Wanted>
std::vector<std::string> namesIn(const std::string& path, Wanted wanted) {
  WIN32_FIND_DATAW entry;
  const FindHandle search(FindFirstFileExW(everythingIn(path).c_str(), FindExInfoBasic, &entry,
                                           FindExSearchNameMatch, nullptr,
                                           FIND_FIRST_EX_LARGE_FETCH));
  std::vector<std::string> names;
  if (!search) {
    const DWORD error = GetLastError();
    // The root of an empty drive holds nothing, not even itself.
    if (error == ERROR_FILE_NOT_FOUND && isFolder(GetFileAttributesW(systemPath(path).c_str())))
      return names;
    throwFailure(path, error);
  }
  do {
    const std::wstring_view wide = entry.cFileName;
    if (wide == L"." || wide == L".." || (entry.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN)) continue;
    std::string name = utf8Text(wide);
    if (wanted(isFolder(entry.dwFileAttributes), name)) names.push_back(std::move(name));
  } while (FindNextFileW(search.get(), &entry));
  if (const DWORD error = GetLastError(); error != ERROR_NO_MORE_FILES) throwFailure(path, error);
  base::sortNames(names);
  return names;
}

}  // namespace

std::vector<std::string> foldersIn(const std::string& path) {
  return namesIn(path, [](bool folder, const std::string&) { return folder; });
}

std::vector<std::string> filesIn(const std::string& path, const std::string& patterns) {
  const base::FilePattern pattern(patterns);
  return namesIn(
      path, [&](bool folder, const std::string& name) { return !folder && pattern.matches(name); });
}

}  // namespace nerolith::windows
