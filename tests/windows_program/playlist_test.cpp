// Playlist files through the system's own dialogs, and the editor, in the program that ships.
#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "windows_program/running_player.h"
#include "windows_system/scratch_folder.h"
#include "windows_system/tone_file.h"

namespace nerolith::windows_program {
namespace {

// Three songs in a folder, one of them in a playlist.
struct Playlist : testing::Test {
  Playlist() {
    for (const char* name : {"a.wav", "b.wav", "c.wav"}) folder.addFile(name, windows::toneFile(3));
    folder.addFile("best.m3u", line("b.wav"));
  }

  std::wstring here() const { return wide(folder.path()) + L"\\"; }
  static std::wstring wide(const std::string& text) { return windows::wideText(text); }
  std::string line(const std::string& name) const { return folder.path(name) + "\r\n"; }
  std::string bytesOf(const std::string& name) const {
    std::ifstream in(folder.path(name), std::ios::binary);
    if (!in) return "(none)";
    return {std::istreambuf_iterator<char>(in), {}};
  }
  bool becomes(const std::string& name, const std::string& bytes) const {
    within(10000, [&] { return bytesOf(name) == bytes; });
    EXPECT_EQ(bytesOf(name), bytes);
    return bytesOf(name) == bytes;
  }
  bool choose(const RunningPlayer& player, const wchar_t* title, const std::string& name) const {
    return player.chooseFile(title, wide(folder.path(name)));
  }

  const FreshSettings settings;
  const windows::ScratchFolder folder;
};

constexpr const wchar_t* kImport = L"Import playlistfile (*.m3u)";
constexpr const wchar_t* kAdd = L"Add selected files to playlist (*.m3u)";
constexpr const wchar_t* kClear = L"Clear playlistfile";

TEST_F(Playlist, IsUpdatedImportedAddedToAndClearedByTheKeysAndDialogs) {
  RunningPlayer player(here() + L",1");
  ASSERT_TRUE(within(10000, [&] { return player.songs() == 3; }));
  player.altKey('U');
  const HWND box = player.message();
  ASSERT_TRUE(box);
  EXPECT_EQ(windows::utf8Text(player.words(box)), "No playlistfile opend");
  PostMessageW(box, WM_COMMAND, IDOK, 0);
  ASSERT_TRUE(within(10000, [box] { return !IsWindow(box); }));

  player.altKey('I');
  ASSERT_TRUE(choose(player, kImport, "best.m3u"));
  ASSERT_TRUE(within(10000, [&] { return player.songs() == 1; }));
  player.key(player.list(), VK_HOME);
  player.altKey('Q');
  ASSERT_TRUE(becomes("best.m3u", line("b.wav") + line("b.wav")));
  player.altKey('U');
  ASSERT_TRUE(becomes("best.m3u", line("b.wav")));
  player.altKey('A');
  ASSERT_TRUE(choose(player, kAdd, "new.m3u"));
  ASSERT_TRUE(becomes("new.m3u", line("b.wav")));
  EXPECT_TRUE(IsWindowVisible(player.window()));
  player.altKey('C');
  ASSERT_TRUE(choose(player, kClear, "best.m3u"));
  EXPECT_TRUE(becomes("best.m3u", ""));
  EXPECT_EQ(player.close(), 0u);
}

TEST_F(Playlist, IsEditedInItsWindowWhileTheMainWindowIsAway) {
  RunningPlayer player(here() + L",1");
  ASSERT_TRUE(within(10000, [&] { return player.songs() == 3; }));
  player.key(player.list(), VK_END);
  player.altKey('A');
  ASSERT_TRUE(choose(player, kAdd, "best.m3u"));
  const HWND editor = player.window(wide(folder.path("best.m3u")));
  ASSERT_TRUE(editor);
  EXPECT_FALSE(IsWindowVisible(player.window()));
  const HWND lines = FindWindowExW(editor, nullptr, WC_LISTVIEWW, nullptr);
  player.key(lines, VK_APPS);
  ASSERT_TRUE(player.menu());
  for (const WPARAM code : {VK_DOWN, VK_DOWN, VK_RETURN}) PostMessageW(editor, WM_KEYDOWN, code, 1);
  ASSERT_TRUE(becomes("best.m3u", line("b.wav") + line("c.wav")));
  player.key(lines, VK_DELETE);
  ASSERT_TRUE(becomes("best.m3u", line("b.wav")));
  player.key(lines, VK_TAB);
  player.key(FindWindowExW(editor, nullptr, L"BUTTON", L"Next M3U"), VK_RETURN);
  ASSERT_TRUE(choose(player, kAdd, "new.m3u"));
  EXPECT_TRUE(becomes("new.m3u", line("c.wav")));
  EXPECT_EQ(player.dialog(kAdd, 300), nullptr) << "asked twice";
  player.altKey('A');
  ASSERT_TRUE(choose(player, kAdd, "best.m3u"));
  ASSERT_TRUE(within(10000, [editor] { return IsWindowVisible(editor) != FALSE; }));
  player.key(lines, VK_ESCAPE);
  EXPECT_TRUE(within(10000, [&] { return IsWindowVisible(player.window()) != FALSE; }));
  EXPECT_TRUE(within(10000, [editor] { return !IsWindowVisible(editor); }));
  EXPECT_EQ(player.close(), 0u);
}

}  // namespace
}  // namespace nerolith::windows_program
