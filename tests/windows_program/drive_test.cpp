// A drive whose medium comes and goes. scripts/wine_desktop.sh makes it: M: is a folder that is not
// there, until a test makes it.
#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "windows_program/running_player.h"
#include "windows_system/scratch_folder.h"
#include "windows_system/tone_file.h"

namespace nerolith::windows_program {
namespace {

const std::filesystem::path kMedium = NEROLITH_MEDIUM;

struct Drives : testing::Test {
  Drives() {
    std::filesystem::remove_all(kMedium);
    for (const char* name : {"one.wav", "two.wav", "three.wav"})
      folder.addFile(name, windows::toneFile(30));
  }
  ~Drives() override {
    std::error_code ignored;
    std::filesystem::remove_all(kMedium, ignored);
  }

  std::wstring here() const { return windows::wideText(folder.path()) + L"\\"; }
  static HWND drives(const RunningPlayer& player) { return player.child(L"COMBOBOX"); }
  static std::wstring driveAt(const RunningPlayer& player, WPARAM row) {
    wchar_t text[300] = L"";
    SendMessageW(drives(player), CB_GETLBTEXT, row, reinterpret_cast<LPARAM>(text));
    return text;
  }
  static std::wstring chosen(const RunningPlayer& player) {
    return driveAt(player, static_cast<WPARAM>(SendMessageW(drives(player), CB_GETCURSEL, 0, 0)));
  }
  /// As the mouse does in the list that drops down. False: there is no such drive.
  static bool choose(const RunningPlayer& player, wchar_t letter) {
    const auto count = SendMessageW(drives(player), CB_GETCOUNT, 0, 0);
    for (LRESULT row = 0; row < count; ++row) {
      if (driveAt(player, static_cast<WPARAM>(row)).front() != letter) continue;
      SendMessageW(drives(player), CB_SETCURSEL, static_cast<WPARAM>(row), 0);
      PostMessageW(GetParent(drives(player)), WM_COMMAND, MAKEWPARAM(0, CBN_SELCHANGE),
                   reinterpret_cast<LPARAM>(drives(player)));
      return true;
    }
    return false;
  }
  static bool saysWhatIsWrong(const RunningPlayer& player) {
    return player.saysSomethingLike(L"M:\\: ", 15000);
  }
  static void putMediumIn() {
    std::filesystem::create_directory(kMedium);
    std::ofstream(kMedium / "on the disc.wav", std::ios::binary) << windows::toneFile(30);
  }

  const FreshSettings settings;
  const windows::ScratchFolder folder;
};

TEST_F(Drives, OneWithoutAMediumIsToldAndTheSongsStay) {
  RunningPlayer player(here() + L",1");
  ASSERT_TRUE(within(10000, [&] { return player.songs() == 3; }));
  const std::wstring before = chosen(player);
  ASSERT_TRUE(choose(player, L'M'));
  EXPECT_TRUE(saysWhatIsWrong(player));
  EXPECT_EQ(player.songs(), 3);
  EXPECT_EQ(chosen(player), before);
  player.key(player.list(), VK_END);
  player.key(player.list(), VK_SPACE);
  EXPECT_TRUE(player.shows(L"two"));
  EXPECT_FALSE(player.message(0)) << "a message stands in the way";
  EXPECT_EQ(player.close(), 0u);
}

TEST_F(Drives, AMediumPutInIsListedAndOneTakenOutIsToldAtRefresh) {
  RunningPlayer player(here() + L",1");
  ASSERT_TRUE(within(10000, [&] { return player.songs() == 3; }));
  ASSERT_TRUE(choose(player, L'M'));
  ASSERT_TRUE(saysWhatIsWrong(player));
  putMediumIn();
  ASSERT_TRUE(choose(player, L'M'));
  EXPECT_TRUE(within(15000, [&] { return player.songs() == 1; })) << player.songs();
  EXPECT_FALSE(player.saysSomethingLike(L"M:\\: ", 0));
  std::filesystem::remove_all(kMedium);
  player.press(player.child(L"BUTTON", L"Refresh"));
  EXPECT_TRUE(saysWhatIsWrong(player));
  EXPECT_EQ(player.songs(), 1);
  ASSERT_TRUE(choose(player, L'Z'));
  EXPECT_TRUE(within(15000, [&] { return !player.saysSomethingLike(L"M:\\: ", 0); }));
  EXPECT_EQ(player.close(), 0u);
}

TEST_F(Drives, AStartOnOneWithoutAMediumShowsTheWindow) {
  settings.put(L"Velmarion\\Path", L"path", L"M:\\music");
  settings.put(L"Microsoft Visual Basic AddIns\\Setting", L"setting", L"2");
  RunningPlayer player;
  EXPECT_TRUE(player.saysSomethingLike(L"M:\\music: ", 15000));
  EXPECT_FALSE(player.message(0));
  EXPECT_EQ(player.close(), 0u);
}

}  // namespace
}  // namespace nerolith::windows_program
