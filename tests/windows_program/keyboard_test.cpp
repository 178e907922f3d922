// The whole program worked by the keys of the keyboard alone.
#include <windows.h>

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "windows_program/running_player.h"
#include "windows_system/scratch_folder.h"
#include "windows_system/tone_file.h"

namespace nerolith::windows_program {
namespace {

/// Two songs in a folder beneath the one that the player starts in, and a playlist.
struct Keyboard : testing::Test {
  Keyboard() {
    for (const char* name : {"Albums/one.wav", "Albums/two.wav"})
      folder.addFile(name, windows::toneFile(30));
    folder.addFile("best.m3u", "C:\\nowhere\\at all.mp3\r\n");
  }

  std::wstring path(const char* name = "") const { return windows::wideText(folder.path(name)); }
  std::string playlist() const {
    std::ifstream in(folder.path("best.m3u"), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  static HWND focus(const RunningPlayer& player) {
    GUITHREADINFO state{};
    state.cbSize = sizeof state;
    GetGUIThreadInfo(GetWindowThreadProcessId(player.window(), nullptr), &state);
    return state.hwndFocus;
  }
  /// To whatever has the keyboard, as the system sends it.
  static void key(const RunningPlayer& player, WPARAM code) { player.key(focus(player), code); }
  static bool comesTo(const RunningPlayer& player, HWND control) {
    return within(10000, [&] { return focus(player) == control; });
  }
  /// Goes on by Tab until the control has the keyboard.
  static bool tabTo(const RunningPlayer& player, HWND control) {
    for (int stops = 0; stops < 30 && focus(player) != control; ++stops) {
      const HWND before = focus(player);
      key(player, VK_TAB);
      within(5000, [&] { return focus(player) != before; });
    }
    return focus(player) == control;
  }
  static HWND childOf(HWND window, const wchar_t* kind, const wchar_t* words) {
    return FindWindowExW(window, nullptr, kind, words);
  }
  /// Opens the menu by its key, and from it the window of that title.
  static HWND choose(const RunningPlayer& player, int upwards, const wchar_t* title) {
    PostMessageW(focus(player), WM_SYSCHAR, 'o', 1 << 29);
    if (!player.menu()) return nullptr;
    for (int i = 0; i < upwards; ++i) player.key(player.window(), VK_UP);
    player.key(player.window(), VK_RETURN);
    const HWND window = player.window(title);
    return window && keyboardComesTo(player, window) ? window : nullptr;
  }
  /// Where windows come and go, Wine and the window manager now and then leave none in front. What
  /// a user would reach by Alt and Tab is brought forward then.
  static bool keyboardComesTo(const RunningPlayer& player, HWND window) {
    const auto there = [&] { return GetAncestor(focus(player), GA_ROOT) == window; };
    if (within(3000, there)) return true;
    SetForegroundWindow(window);
    return within(10000, there);
  }

  const FreshSettings settings;
  const windows::ScratchFolder folder;
};

TEST_F(Keyboard, OpensAFolderPlaysItAndGoesThroughEveryWindowAndBack) {
  RunningPlayer player(path() + L"\\,1");
  ASSERT_TRUE(comesTo(player, player.list()));
  const HWND drives = player.child(L"COMBOBOX");
  ASSERT_TRUE(tabTo(player, drives));
  key(player, VK_TAB);  // into the folders, which have come up
  ASSERT_TRUE(within(10000, [&] { return focus(player) != drives; }));
  for (const WPARAM code : {VK_END, VK_RETURN}) key(player, code);
  ASSERT_TRUE(within(10000, [&] { return player.songs() == 2; }));
  ASSERT_TRUE(tabTo(player, player.list()));
  for (const WPARAM code : {VK_HOME, VK_SPACE}) key(player, code);
  EXPECT_TRUE(player.shows(L"one"));

  const HWND rules = choose(player, 1, L"Settings");
  ASSERT_TRUE(rules);
  ASSERT_TRUE(tabTo(player, childOf(rules, L"BUTTON", L"Save Settings")));
  key(player, VK_SPACE);
  ASSERT_TRUE(keyboardComesTo(player, player.window()));

  const HWND section = choose(player, 2, L"Nerolith recording section");
  ASSERT_TRUE(section);
  ASSERT_TRUE(tabTo(player, childOf(section, nullptr, L"Exit")));
  key(player, VK_SPACE);
  ASSERT_TRUE(keyboardComesTo(player, player.window()));

  ASSERT_TRUE(tabTo(player, player.list()));
  player.altKey('A');
  ASSERT_TRUE(player.chooseFile(L"Add selected files to playlist (*.m3u)", path("best.m3u")));
  const HWND editor = player.window(path("best.m3u"));
  ASSERT_TRUE(editor);
  ASSERT_TRUE(keyboardComesTo(player, editor));
  for (const WPARAM code : {VK_HOME, VK_DELETE}) key(player, code);
  EXPECT_TRUE(within(10000, [&] { return playlist().empty(); })) << playlist();
  key(player, VK_ESCAPE);
  ASSERT_TRUE(keyboardComesTo(player, player.window()));

  ASSERT_TRUE(tabTo(player, player.child(L"BUTTON", L"Close")));
  key(player, VK_SPACE);
  EXPECT_EQ(WaitForSingleObject(player.process(), 10000), WAIT_OBJECT_0);
}

}  // namespace
}  // namespace nerolith::windows_program
