#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <vector>

#include "windows_program/running_player.h"
#include "windows_system/scratch_folder.h"
#include "windows_system/tone_file.h"

namespace nerolith::windows_program {
namespace {

constexpr const wchar_t* kModes = L"Microsoft Visual Basic AddIns\\Setting";
constexpr const wchar_t* kPath = L"Velmarion\\Path";

// Three songs of 30 s in a folder.
struct MainWindow : testing::Test {
  MainWindow() {
    for (const char* name : {"one.wav", "two.wav", "three.wav"})
      folder.addFile(name, windows::toneFile(30));
    folder.addFile("notes.txt", "no song");
  }
  std::wstring here() const { return windows::wideText(folder.path()) + L"\\"; }
  HWND faceNamed(const RunningPlayer& player, const wchar_t* name) const {
    return player.child(L"BUTTON", name);
  }
  bool isLit(const RunningPlayer& player, const wchar_t* lamp) const {
    return SendMessageW(faceNamed(player, lamp), BM_GETCHECK, 0, 0) == BST_CHECKED;
  }
  bool lit(const RunningPlayer& player, const wchar_t* lamp) const {
    return within(10000, [&] { return isLit(player, lamp); });
  }
  /// Presses the keys one after another and lets go of them in the reverse order.
  static void type(const std::vector<WORD>& keys) {
    std::vector<INPUT> events;
    for (const WORD key : keys) events.push_back(stroke(key, 0));
    for (auto key = keys.rbegin(); key != keys.rend(); ++key)
      events.push_back(stroke(*key, KEYEVENTF_KEYUP));
    SendInput(static_cast<UINT>(events.size()), events.data(), sizeof(INPUT));
  }
  static INPUT stroke(WORD key, DWORD flags) {
    INPUT event{};
    event.type = INPUT_KEYBOARD;
    event.ki.wVk = key;
    event.ki.dwFlags = flags;
    return event;
  }
  bool timeRuns(const RunningPlayer& player) const { return player.shows(L"00:28"); }

  const FreshSettings settings;
  const windows::ScratchFolder folder;
};

TEST_F(MainWindow, ListsTheFolderOfTheCommandLineAndNothingThatIsNoSong) {
  const RunningPlayer player(here() + L",1");
  EXPECT_TRUE(within(10000, [&] { return player.songs() == 3; })) << player.songs();
  EXPECT_TRUE(player.shows(L"3"));
  EXPECT_TRUE(lit(player, L"Single"));
}

TEST_F(MainWindow, ADoubleClickStartsTheSong) {
  const RunningPlayer player(here() + L",1");
  ASSERT_TRUE(within(10000, [&] { return player.songs() == 3; }));
  player.doubleClickRow(1);
  EXPECT_TRUE(player.shows(L"three"));
  EXPECT_TRUE(timeRuns(player));
}

TEST_F(MainWindow, TheSpaceBarStartsTheCurrentSong) {
  const RunningPlayer player(here() + L",1");
  ASSERT_TRUE(within(10000, [&] { return player.songs() == 3; }));
  player.key(player.list(), VK_END);
  player.key(player.list(), VK_SPACE);
  EXPECT_TRUE(player.shows(L"two"));
  EXPECT_TRUE(timeRuns(player));
}

TEST_F(MainWindow, PlayNextPressedByItsNamePlaysTheNext) {
  const RunningPlayer player(here() + L",2");
  ASSERT_TRUE(player.shows(L"one"));
  ASSERT_TRUE(timeRuns(player));
  player.press(faceNamed(player, L"Play &Next"));
  EXPECT_TRUE(player.shows(L"three"));
}

TEST_F(MainWindow, AWordOfTheDisplayChangesTheModeAndItsLamp) {
  RunningPlayer player(here() + L",1");
  ASSERT_TRUE(lit(player, L"Single"));
  player.press(faceNamed(player, L"Random"));
  player.press(faceNamed(player, L"loop"));
  EXPECT_TRUE(lit(player, L"Random"));
  EXPECT_TRUE(lit(player, L"loop"));
  EXPECT_FALSE(isLit(player, L"Single"));
  EXPECT_EQ(player.close(), 0u);
  EXPECT_EQ(settings.text(kModes, L"setting"), L"3");
  EXPECT_EQ(settings.text(kModes, L"lo"), L"True");
}

// By the keyboard itself, which writes to whatever window is in front: until it is this one.
TEST_F(MainWindow, AFastKeySelectsAndWithShiftAdds) {
  settings.put(L"Nerolith\\Setting", L"key0", L"o");
  settings.put(L"Nerolith\\Setting", L"key1", L"T");
  RunningPlayer player(here() + L",1");
  ASSERT_TRUE(within(10000, [&] { return player.songs() == 3; }));
  player.press(faceNamed(player, L"Random"));
  ASSERT_TRUE(lit(player, L"Random"));
  const auto typed = [&](std::vector<WORD> keys, int selected) {
    return within(15000, [&] {
      SetForegroundWindow(player.window());
      type(keys);
      return within(1000, [&] {
        return SendMessageW(player.list(), LVM_GETSELECTEDCOUNT, 0, 0) == selected;
      });
    });
  };
  EXPECT_TRUE(typed({VK_F1}, 1));
  EXPECT_TRUE(typed({VK_SHIFT, VK_F2}, 3));
  EXPECT_TRUE(typed({VK_F2}, 2));
  EXPECT_EQ(player.close(), 0u);
}

TEST_F(MainWindow, TheMenuComesUpAndGoes) {
  RunningPlayer player(here() + L",1");
  ASSERT_TRUE(lit(player, L"Single"));
  player.press(faceNamed(player, L"&Options"));
  const HWND menu = player.menu();
  ASSERT_TRUE(menu);
  PostMessageW(player.window(), WM_CANCELMODE, 0, 0);
  EXPECT_TRUE(player.menuGone());
  player.press(faceNamed(player, L"&Options"));
  ASSERT_TRUE(player.menu()) << "it comes up only once";
  PostMessageW(player.window(), WM_CANCELMODE, 0, 0);
  EXPECT_TRUE(player.menuGone());
  EXPECT_EQ(player.close(), 0u);
}

TEST_F(MainWindow, ClosingItStoresTheFolderAndTheModeForTheNextStart) {
  settings.put(kModes, L"setting", L"1");
  settings.put(kPath, L"path", windows::wideText(folder.path()));
  {
    RunningPlayer player;
    EXPECT_TRUE(within(10000, [&] { return player.songs() == 3; }));
    ASSERT_TRUE(lit(player, L"Single"));
    player.press(faceNamed(player, L"Auto next"));
    EXPECT_TRUE(lit(player, L"Auto next"));
    EXPECT_EQ(player.close(), 0u);
  }
  EXPECT_EQ(settings.text(kModes, L"setting"), L"2");
  EXPECT_EQ(settings.text(kPath, L"path"), windows::wideText(folder.path()));
  const RunningPlayer again;
  EXPECT_TRUE(lit(again, L"Auto next"));
  EXPECT_TRUE(again.shows(L"one")) << "Auto next starts by itself";
}

TEST_F(MainWindow, AQuestionMarkShowsTheUsage) {
  std::wstring line = L"\"" + windows::wideText(NEROLITH_PROGRAM) + L"\" ?";
  STARTUPINFOW how{};
  how.cb = sizeof how;
  PROCESS_INFORMATION started{};
  ASSERT_TRUE(CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                             &how, &started));
  HWND box = nullptr;
  EXPECT_TRUE(within(10000, [&] {
    box = FindWindowW(L"#32770", nullptr);
    DWORD process = 0;
    GetWindowThreadProcessId(box, &process);
    return box && process == started.dwProcessId;
  }));
  PostMessageW(box, WM_COMMAND, IDOK, 0);
  EXPECT_EQ(WaitForSingleObject(started.hProcess, 5000), WAIT_OBJECT_0);
  TerminateProcess(started.hProcess, 1);
  CloseHandle(started.hProcess);
  CloseHandle(started.hThread);
}

}  // namespace
}  // namespace nerolith::windows_program
