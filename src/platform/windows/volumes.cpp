#include "platform/windows/volumes.h"

#include <windows.h>
// After windows.h, which it needs.
#include <winnetwk.h>

#include <iterator>
#include <string>

#include "platform/windows/wide_text.h"

namespace nerolith::windows {
namespace {

/// What stands in brackets behind the letter; empty when the drive has no name or does not tell.
std::wstring nameOf(const std::wstring& root) {
  wchar_t name[MAX_PATH + 1] = {};
  DWORD length = static_cast<DWORD>(std::size(name));
  switch (GetDriveTypeW(root.c_str())) {
    case DRIVE_REMOTE:
      return WNetGetConnectionW(root.substr(0, 2).c_str(), name, &length) == NO_ERROR ? name : L"";
    case DRIVE_REMOVABLE:
      if (root[0] <= L'B') return {};
      break;
    case DRIVE_NO_ROOT_DIR:
      return {};
    default:
      break;
  }
  return GetVolumeInformationW(root.c_str(), name, length, nullptr, nullptr, nullptr, nullptr, 0)
             ? name
             : L"";
}

}  // namespace

std::vector<controls::DriveEntry> listVolumes() {
  std::vector<controls::DriveEntry> drives;
  const DWORD letters = GetLogicalDrives();
  for (unsigned i = 0; i < 26; ++i) {
    if (!(letters >> i & 1)) continue;
    const std::string drive{static_cast<char>('A' + i), ':'};
    const std::wstring name = nameOf(wideText(drive + '\\'));
    drives.push_back({drive + '\\', name.empty() ? drive : drive + " [" + utf8Text(name) + ']'});
  }
  return drives;
}

}  // namespace nerolith::windows
