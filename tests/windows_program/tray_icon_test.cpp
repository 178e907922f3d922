// The icon of the program that ships: what the shell knows of it, and what its mouse does.
#include <windows.h>

#include <gtest/gtest.h>
#include <shellapi.h>

#include "windows_program/running_player.h"
#include "windows_system/scratch_folder.h"
#include "windows_system/tone_file.h"

namespace nerolith::windows_program {
namespace {

constexpr UINT kMouseMove = 512;
constexpr UINT kIconId = 100;
constexpr int kLeftDown = 513, kLeftUp = 514, kDouble = 515, kRightDown = 516, kRightUp = 517;

struct Host {
  DWORD process;
  HWND window;
};

BOOL CALLBACK lookForHost(HWND window, LPARAM data) {
  auto& sought = *reinterpret_cast<Host*>(data);
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  wchar_t title[64] = L"";
  GetWindowTextW(window, title, 64);
  if (process != sought.process || std::wstring(title) != L"Nerolith tray icon") return TRUE;
  sought.window = window;
  return FALSE;
}

BOOL CALLBACK tellOfTaskBar(HWND window, LPARAM told) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if (process == static_cast<DWORD>(told))
    PostMessageW(window, RegisterWindowMessageW(L"TaskbarCreated"), 0, 0);
  return TRUE;
}

struct TrayIcon : testing::Test {
  TrayIcon() {
    for (const char* name : {"one.wav", "two.wav", "three.wav"})
      folder.addFile(name, windows::toneFile(30));
  }
  std::wstring here() const { return windows::wideText(folder.path()) + L"\\"; }

  static HWND hostOf(const RunningPlayer& player) {
    Host host{GetProcessId(player.process()), nullptr};
    within(10000, [&] {
      EnumWindows(&lookForHost, reinterpret_cast<LPARAM>(&host));
      return host.window != nullptr;
    });
    return host.window;
  }
  static HWND pictureOf(const RunningPlayer& player) {
    return FindWindowExW(hostOf(player), nullptr, L"STATIC", L"Tray icon");
  }
  /// Whether the shell knows an icon of this window: it changes none that it does not.
  static bool shellKnows(HWND picture) { return tellShell(NIM_MODIFY, picture); }
  static void shellForgets(HWND picture) { tellShell(NIM_DELETE, picture); }
  static bool tellShell(DWORD message, HWND picture) {
    NOTIFYICONDATAA data{};
    data.cbSize = NOTIFYICONDATAA_V1_SIZE;
    data.hWnd = picture;
    data.uID = kIconId;
    return Shell_NotifyIconA(message, &data) != FALSE;
  }
  /// The shell tells the windows of the top level, here those of the player alone.
  static void taskBarIsMadeAnew(const RunningPlayer& player) {
    EnumWindows(&tellOfTaskBar, static_cast<LPARAM>(GetProcessId(player.process())));
  }
  static bool iconIsIn(HWND picture) {
    return within(10000, [&] { return shellKnows(picture); });
  }
  /// As the shell tells it.
  static void mouse(HWND picture, int message) {
    PostMessageW(picture, kMouseMove, kIconId, message);
  }
  /// Pops the menu up and chooses the n-th of its entries that can be chosen.
  static void choose(const RunningPlayer& player, int entry) {
    mouse(pictureOf(player), kRightDown);
    mouse(pictureOf(player), kRightUp);
    ASSERT_TRUE(player.menu()) << "no menu comes up";
    for (int i = 0; i < entry; ++i) player.key(hostOf(player), VK_DOWN);
    player.key(hostOf(player), VK_RETURN);
  }
  static void hide(const RunningPlayer& player) {
    player.press(player.child(L"BUTTON", L"Hide"));
    EXPECT_TRUE(within(10000, [&] { return !IsWindowVisible(player.window()); }));
  }
  static HWND focusOf(const RunningPlayer& player) {
    GUITHREADINFO state{};
    state.cbSize = sizeof state;
    GetGUIThreadInfo(GetWindowThreadProcessId(player.window(), nullptr), &state);
    return state.hwndFocus;
  }

  const FreshSettings settings;
  const windows::ScratchFolder folder;
};

TEST_F(TrayIcon, ComesWithTheWindowAndGoesWithTheProgram) {
  RunningPlayer player(here() + L",1");
  const HWND picture = pictureOf(player);
  ASSERT_TRUE(picture);
  EXPECT_TRUE(iconIsIn(picture));
  EXPECT_FALSE(IsWindowVisible(hostOf(player)));
  EXPECT_EQ(player.close(), 0u);
  EXPECT_TRUE(within(5000, [&] { return !shellKnows(picture); }));
}

TEST_F(TrayIcon, ComesAgainWhenTheTaskBarIsMadeAnew) {
  const RunningPlayer player(here() + L",1");
  const HWND picture = pictureOf(player);
  ASSERT_TRUE(iconIsIn(picture));
  shellForgets(picture);
  ASSERT_FALSE(shellKnows(picture));
  taskBarIsMadeAnew(player);
  EXPECT_TRUE(iconIsIn(picture));
}

TEST_F(TrayIcon, PlayNextPlaysTheNextSongWhileTheWindowIsHidden) {
  const RunningPlayer player(here() + L",2");
  ASSERT_TRUE(player.shows(L"one"));
  ASSERT_TRUE(iconIsIn(pictureOf(player)));
  hide(player);
  choose(player, 1);
  EXPECT_TRUE(player.shows(L"three"));
}

TEST_F(TrayIcon, MaximizeBringsTheHiddenWindowBackWithTheKeyboardInItsList) {
  const RunningPlayer player(here() + L",1");
  ASSERT_TRUE(iconIsIn(pictureOf(player)));
  hide(player);
  choose(player, 2);
  EXPECT_TRUE(within(10000, [&] { return IsWindowVisible(player.window()) != FALSE; }));
  EXPECT_TRUE(within(10000, [&] { return focusOf(player) == player.list(); }));
}

TEST_F(TrayIcon, ExitEndsAHiddenProgramAsItsWindowDoes) {
  settings.put(L"Microsoft Visual Basic AddIns\\Setting", L"setting", L"1");
  settings.put(L"Velmarion\\Path", L"path", windows::wideText(folder.path()));
  const RunningPlayer player;
  const HWND picture = pictureOf(player);
  ASSERT_TRUE(iconIsIn(picture));
  hide(player);
  choose(player, 3);
  ASSERT_EQ(WaitForSingleObject(player.process(), 10000), WAIT_OBJECT_0);
  DWORD code = 9999;
  GetExitCodeProcess(player.process(), &code);
  EXPECT_EQ(code, 0u);
  EXPECT_EQ(settings.text(L"Velmarion\\Path", L"path"), windows::wideText(folder.path()));
  EXPECT_TRUE(within(5000, [&] { return !shellKnows(picture); }));
}

TEST_F(TrayIcon, LeftDownAndDoubleClickPopTheMenuUpAndOtherMessagesDoNot) {
  const RunningPlayer player(here() + L",1");
  const HWND picture = pictureOf(player);
  ASSERT_TRUE(iconIsIn(picture));
  for (const int message : {kLeftUp, kRightUp, 518, 512}) mouse(picture, message);
  EXPECT_FALSE(player.menu(500));
  for (const int message : {kLeftDown, kDouble}) {
    mouse(picture, message);
    EXPECT_TRUE(player.menu()) << message;
    player.key(hostOf(player), VK_ESCAPE);
    EXPECT_TRUE(player.menuGone()) << message;
  }
}

}  // namespace
}  // namespace nerolith::windows_program
