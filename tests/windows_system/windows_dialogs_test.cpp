#include "platform/windows/windows_dialogs.h"

#include <gtest/gtest.h>

#include "contracts/dialogs_contract.h"
#include "platform/windows/com_apartment.h"
#include "windows_system/dialog_user.h"
#include "windows_system/scratch_folder.h"

namespace nerolith::windows {
namespace {

using platform::Answer;

struct Backend {
  Backend() { scratch.addFile("list.m3u"); }
  platform::Dialogs& dialogs() { return shown; }
  void userAnswers(Answer answer) {
    user.presses(answer == Answer::Yes ? IDYES : answer == Answer::No ? IDNO : IDOK);
  }
  void userChooses(const std::string& path) { user.choosesFile(path); }
  void userCancels() { user.presses(IDCANCEL); }
  std::string somePath() { return scratch.path("list.m3u"); }

  ComApartment apartment;
  ScratchFolder scratch;
  WindowsDialogs shown{[] { return nullptr; }, [this] { return scratch.path(); }};
  DialogUser user;
};

}  // namespace
}  // namespace nerolith::windows

namespace nerolith::contracts {
INSTANTIATE_TYPED_TEST_SUITE_P(Windows, DialogsContract, windows::Backend);
}

namespace nerolith::windows {
namespace {

platform::Message question(Answer preset) {
  return {"Delete \xE2\x98\x83?", platform::MessageIcon::Critical, platform::MessageButtons::YesNo,
          preset};
}

/// Posts a key to where the keyboard is in the box.
bool typeKey(HWND dialog, WPARAM key) {
  if (!GetDlgItem(dialog, IDYES) && !GetDlgItem(dialog, IDOK)) return false;
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  if (!GetGUIThreadInfo(GetWindowThreadProcessId(dialog, nullptr), &info) || !info.hwndFocus)
    return false;
  return PostMessageW(info.hwndFocus, WM_KEYDOWN, key, 1) != 0;
}

TEST(WindowsDialogs, EscapeAnswersNo) {
  Backend backend;
  backend.user.onceShown([](HWND dialog) { return typeKey(dialog, VK_ESCAPE); });
  EXPECT_EQ(backend.shown.showMessage(question(Answer::Yes)), Answer::No);
}

TEST(WindowsDialogs, EnterPressesThePresetButton) {
  for (const Answer preset : {Answer::Yes, Answer::No}) {
    Backend backend;
    backend.user.onceShown([](HWND dialog) { return typeKey(dialog, VK_RETURN); });
    EXPECT_EQ(backend.shown.showMessage(question(preset)), preset);
  }
}

TEST(WindowsDialogs, TheMessageCarriesThePlayersNameAndItsText) {
  Backend backend;
  std::wstring title, text;
  backend.user.onceShown([&](HWND dialog) {
    if (!GetDlgItem(dialog, IDYES)) return false;
    wchar_t buffer[64] = L"";
    GetWindowTextW(dialog, buffer, 64);
    title = buffer;
    GetDlgItemTextW(dialog, 0xFFFF, buffer, 64);
    text = buffer;
    return PostMessageW(dialog, WM_COMMAND, IDYES, 0) != 0;
  });
  backend.shown.showMessage(question(Answer::Yes));
  backend.user.finish();
  EXPECT_EQ(title, L"Nerolith");
  EXPECT_EQ(text, L"Delete \x2603?");
}

TEST(WindowsDialogs, TimersGoOnWhileAMessageIsOpen) {
  Backend backend;
  static int ticks;
  ticks = 0;
  const UINT_PTR timer = SetTimer(nullptr, 0, 10, [](HWND, UINT, UINT_PTR, DWORD) { ++ticks; });
  backend.user.onceShown([](HWND dialog) {
    Sleep(300);
    return PostMessageW(dialog, WM_COMMAND, IDOK, 0) != 0;
  });
  backend.shown.showMessage({"Error playing selected file"});
  KillTimer(nullptr, timer);
  EXPECT_GE(ticks, 5);
}

TEST(WindowsDialogs, AFileDialogLeavesTheProcessWhereItIs) {
  Backend backend;
  backend.scratch.addFile("deeper/other.m3u");
  wchar_t before[MAX_PATH] = L"", after[MAX_PATH] = L"";
  GetCurrentDirectoryW(MAX_PATH, before);
  backend.user.choosesFile(backend.scratch.path("deeper/other.m3u"));
  EXPECT_EQ(backend.shown.openFile({"Open playlist", "*.m3u|*.m3u", ""}),
            backend.scratch.path("deeper/other.m3u"));
  GetCurrentDirectoryW(MAX_PATH, after);
  EXPECT_STREQ(after, before);
}

TEST(WindowsDialogs, ANameThatCannotBeIsNotSuggested) {
  Backend backend;
  backend.user.presses(IDCANCEL);
  EXPECT_EQ(backend.shown.saveFile({"Save", "", "a<b>|\"?*.m3u"}), std::nullopt);
}

}  // namespace
}  // namespace nerolith::windows
