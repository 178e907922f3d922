// A second start of the program, and what reaches the player from outside its window.
#include <windows.h>

#include <gtest/gtest.h>

#include "windows_program/running_player.h"
#include "windows_system/scratch_folder.h"
#include "windows_system/tone_file.h"

namespace nerolith::windows_program {
namespace {

struct LaterStart : testing::Test {
  LaterStart() {
    for (const char* name : {"one.wav", "two.wav", "three.wav"})
      folder.addFile(name, windows::toneFile(30));
  }
  std::wstring here() const { return windows::wideText(folder.path()); }

  /// Its exit code; 9999 when it has not ended after ten seconds.
  static DWORD startAgain(const std::wstring& commandLine, const std::wstring& directory) {
    std::wstring line = L"\"" + windows::wideText(NEROLITH_PROGRAM) + L"\" " + commandLine;
    STARTUPINFOW how{};
    how.cb = sizeof how;
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                        directory.c_str(), &how, &started))
      return 9998;
    const windows::SystemHandle process(started.hProcess), thread(started.hThread);
    DWORD code = 9999;
    if (WaitForSingleObject(process.get(), 10000) == WAIT_OBJECT_0)
      GetExitCodeProcess(process.get(), &code);
    else
      TerminateProcess(process.get(), 1);
    return code;
  }

  const FreshSettings settings;
  const windows::ScratchFolder folder;
};

TEST_F(LaterStart, HandsItsFileToTheFirstAndEnds) {
  RunningPlayer player(here() + L"\\,1");
  ASSERT_TRUE(within(10000, [&] { return player.songs() == 3; }));
  EXPECT_EQ(startAgain(L"\"" + here() + L"\\two.wav\"", L"C:\\"), 0u);
  EXPECT_TRUE(player.shows(L"two"));
  EXPECT_EQ(startAgain(L"three.wav", here()), 0u) << "counted from the folder of that start";
  EXPECT_TRUE(player.shows(L"three"));
  EXPECT_EQ(player.close(), 0u);
}

TEST_F(LaterStart, OpensAFolderWithACommaInItsNameAsExplorerNamesIt) {
  folder.addFolder("Rock, and more");
  folder.addFile("Rock, and more/four.wav", windows::toneFile(5));
  RunningPlayer player(here() + L"\\,1");
  ASSERT_TRUE(within(10000, [&] { return player.songs() == 3; }));
  EXPECT_EQ(startAgain(L"\"" + here() + L"\\Rock, and more\"", L"C:\\"), 0u);
  EXPECT_TRUE(within(10000, [&] { return player.songs() == 1; })) << player.songs();
  EXPECT_EQ(player.close(), 0u);
}

TEST_F(LaterStart, BringsAMinimisedPlayerBack) {
  RunningPlayer player(here() + L"\\,1");
  ShowWindow(player.window(), SW_MINIMIZE);
  ASSERT_TRUE(within(5000, [&] { return IsIconic(player.window()) != FALSE; }));
  EXPECT_EQ(startAgain(L"", L"C:\\"), 0u);
  EXPECT_TRUE(within(5000, [&] { return IsIconic(player.window()) == FALSE; }));
  EXPECT_EQ(player.songs(), 3);
  EXPECT_EQ(player.close(), 0u);
}

TEST_F(LaterStart, AfterTheFirstHasEndedIsThePlayerItself) {
  { RunningPlayer killed(here() + L"\\,1"); }  // by force
  RunningPlayer player(here() + L"\\,1");
  EXPECT_TRUE(within(10000, [&] { return player.songs() == 3; }));
  EXPECT_EQ(player.close(), 0u);
}

TEST_F(LaterStart, AMediaKeyReachesThePlayerWhereverTheKeyboardIs) {
  RunningPlayer player(here() + L"\\,2");
  ASSERT_TRUE(player.shows(L"one"));
  ASSERT_TRUE(player.shows(L"00:28"));
  ShowWindow(player.window(), SW_MINIMIZE);
  keybd_event(VK_MEDIA_NEXT_TRACK, 0, 0, 0);
  keybd_event(VK_MEDIA_NEXT_TRACK, 0, KEYEVENTF_KEYUP, 0);
  EXPECT_TRUE(player.shows(L"three"));
  EXPECT_EQ(player.close(), 0u);
}

// What Wine's taskbar has no keys to send: a press of the third, "Play Next".
TEST_F(LaterStart, AKeyOfTheTaskbarsThumbnailReachesThePlayer) {
  constexpr WORD kPressed = 0x1800, kPlayNext = 2;
  RunningPlayer player(here() + L"\\,2");
  ASSERT_TRUE(player.shows(L"one"));
  ASSERT_TRUE(player.shows(L"00:28"));
  PostMessageW(player.window(), WM_COMMAND, MAKEWPARAM(kPlayNext, kPressed), 0);
  EXPECT_TRUE(player.shows(L"three"));
  EXPECT_EQ(player.close(), 0u);
}

}  // namespace
}  // namespace nerolith::windows_program
