#include "platform/windows/windows_file_system.h"

#include <windows.h>
// After windows.h, which it needs.
#include <shlobj.h>

#include "platform/failure.h"
#include "platform/windows/failure_text.h"
#include "platform/windows/file_path.h"
#include "platform/windows/folder_listing.h"
#include "platform/windows/local_day.h"
#include "platform/windows/volumes.h"
#include "platform/windows/wide_text.h"

namespace nerolith::windows {
namespace {

/// Calls that fill a buffer and answer the length they need, or the buffer's when it is too short.
template <typename Call>
std::string filledText(const char* what, Call call) {
  std::wstring text(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = call(static_cast<DWORD>(text.size()), text.data());
    if (length == 0) throwLastError(what);
    if (length < text.size()) return utf8Text({text.data(), length});
    text.resize(text.size() * 2);
  }
}

std::string environmentText(const wchar_t* name) {
  try {
    return filledText("The environment", [name](DWORD size, wchar_t* text) {
      return GetEnvironmentVariableW(name, text, size);
    });
  } catch (const platform::Failure&) {
    return {};
  }
}

/// The user's folder for programs' own files, wherever it can be learnt.
std::string roamingFolder() {
  std::string told = environmentText(L"APPDATA");
  if (rootLength(told) > 0) return told;
  wchar_t path[MAX_PATH];
  if (SUCCEEDED(SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, path)))
    return utf8Text(path);
  return "C:";  // never asked for on a sound system
}

}  // namespace

WindowsFileSystem::WindowsFileSystem()
    : current_(tidyPath(filledText("The current folder", &GetCurrentDirectoryW), {})) {
  SetErrorMode(GetErrorMode() | SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
}

std::string WindowsFileSystem::tidy(const std::string& path) const {
  return tidyPath(path, current_);
}

DWORD WindowsFileSystem::attributesOf(const std::string& path) const {
  return disk_.wait(path, [path, asked = systemPath(tidy(path))] {
    const DWORD attributes = GetFileAttributesW(asked.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) throwLastError(path);
    return attributes;
  });
}

std::string WindowsFileSystem::programFolder() const {
  const std::string program = filledText("The program's own path", [](DWORD size, wchar_t* text) {
    return GetModuleFileNameW(nullptr, text, size);
  });
  const std::vector<std::string> way = wayTo(tidyPath(program, {}));
  return way[way.size() - 2];
}

std::string WindowsFileSystem::userDataFolder() const { return roamingFolder() + "\\Velmarion"; }

void WindowsFileSystem::setCurrentDirectory(const std::string& path) {
  const std::string folder = tidy(path);
  if (!(attributesOf(folder) & FILE_ATTRIBUTE_DIRECTORY)) throwFailure(folder, ERROR_DIRECTORY);
  current_ = folder;
  currentFolders_[folder.substr(0, rootLength(folder))] = folder;
}

std::vector<controls::DriveEntry> WindowsFileSystem::drives() const {
  return disk_.wait("The drives", &listVolumes);
}

std::string WindowsFileSystem::driveOf(const std::string& path) const {
  const std::string target = tidy(path);
  const bool onShare = target.front() == '\\';
  if (onShare || !(GetLogicalDrives() >> (target.front() - 'A') & 1))
    throwFailure(path, ERROR_INVALID_DRIVE);
  return target.substr(0, rootLength(target));
}

std::string WindowsFileSystem::currentFolderOf(const std::string& driveRoot) const {
  const std::string root = driveOf(driveRoot);
  if (tidy(driveRoot) != root) throwFailure(driveRoot, ERROR_INVALID_DRIVE);
  if (const auto shown = currentFolders_.find(root); shown != currentFolders_.end())
    return folderExists(shown->second) ? shown->second : root;
  return current_.starts_with(root) ? current_ : root;
}

std::vector<std::string> WindowsFileSystem::ancestors(const std::string& path) const {
  return wayTo(tidy(path));
}

std::vector<std::string> WindowsFileSystem::folders(const std::string& path) const {
  return disk_.wait(path, [folder = tidy(path)] { return foldersIn(folder); });
}

std::vector<std::string> WindowsFileSystem::files(const std::string& path,
                                                  const std::string& patterns) const {
  return disk_.wait(path, [folder = tidy(path), patterns] { return filesIn(folder, patterns); });
}

bool WindowsFileSystem::fileExists(const std::string& path) const {
  try {
    return !(attributesOf(path) & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE));
  } catch (const platform::Failure&) {
    return false;
  }
}

bool WindowsFileSystem::folderExists(const std::string& path) const {
  try {
    return (attributesOf(path) & FILE_ATTRIBUTE_DIRECTORY) != 0;
  } catch (const platform::Failure&) {
    return false;
  }
}

double WindowsFileSystem::lastModified(const std::string& path) const {
  const FILETIME changed = disk_.wait(path, [path, asked = systemPath(tidy(path))] {
    WIN32_FILE_ATTRIBUTE_DATA data;
    if (!GetFileAttributesExW(asked.c_str(), GetFileExInfoStandard, &data)) throwLastError(path);
    return data.ftLastWriteTime;
  });
  const LocalMoment moment = localMoment(changed);
  return moment.day + moment.seconds / 86400;
}

void WindowsFileSystem::makePlainArchive(const std::string& path) {
  disk_.wait(path, [path, asked = systemPath(tidy(path))] {
    if (!SetFileAttributesW(asked.c_str(), FILE_ATTRIBUTE_ARCHIVE)) throwLastError(path);
  });
}

void WindowsFileSystem::deleteFile(const std::string& path) {
  disk_.wait(path, [path, asked = systemPath(tidy(path))] {
    if (!DeleteFileW(asked.c_str())) throwLastError(path);
  });
}

}  // namespace nerolith::windows
