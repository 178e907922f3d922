// A user who answers the dialogs of this process, from a thread of his own.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "platform/windows/wide_text.h"

namespace nerolith::windows {

/// The windows of this process and of that class that can be seen, the foremost first.
inline std::vector<HWND> shownWindows(const std::wstring& className) {
  struct Search {
    const std::wstring& className;
    std::vector<HWND> found;
  } search{className, {}};
  EnumWindows(
      [](HWND window, LPARAM data) -> BOOL {
        auto& sought = *reinterpret_cast<Search*>(data);
        DWORD process = 0;
        wchar_t name[16] = L"";
        GetWindowThreadProcessId(window, &process);
        GetClassNameW(window, name, 16);
        if (process == GetCurrentProcessId() && name == sought.className && IsWindowVisible(window))
          sought.found.push_back(window);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&search));
  return search.found;
}

inline std::vector<HWND> shownDialogs() { return shownWindows(L"#32770"); }

/// Waits in vain for ten seconds at most; the dialog then stays, and the test runs out of time.
class DialogUser {
 public:
  ~DialogUser() { finish(); }

  /// Does `act` to the first dialog in which it can be done; `act` tells whether it was done.
  void onceShown(std::function<bool(HWND)> act) {
    finish();
    thread_ = std::thread([act = std::move(act)] {
      for (int i = 0; i < 1000; ++i, Sleep(10))
        for (const HWND dialog : shownDialogs())
          if (act(dialog)) return;
    });
  }
  void presses(int button) {
    onceShown([button](HWND dialog) {
      return GetDlgItem(dialog, button) && PostMessageW(dialog, WM_COMMAND, button, 0);
    });
  }
  /// Types a path into a file dialog; answers Yes when asked whether to replace the file.
  void choosesFile(const std::string& path) {
    onceShown([path, typed = false](HWND dialog) mutable {
      constexpr int kNameList = 0x47C, kNameField = 0x480;
      HWND field = GetDlgItem(dialog, kNameList);
      if (!field) field = GetDlgItem(dialog, kNameField);
      if (field && !typed) {
        SendMessageW(field, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(wideText(path).c_str()));
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        typed = true;
      }
      if (!field && GetDlgItem(dialog, IDYES)) PostMessageW(dialog, WM_COMMAND, IDYES, 0);
      // Until the last one is gone there may be a question left.
      Sleep(50);
      return typed && shownDialogs().empty();
    });
  }
  void finish() {
    if (thread_.joinable()) thread_.join();
  }

 private:
  std::thread thread_;
};

}  // namespace nerolith::windows
