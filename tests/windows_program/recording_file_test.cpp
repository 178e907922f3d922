// The file of a recording and another program that wants it, in the program that ships. The other
// program is the test.
#include <windows.h>

#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <iterator>

#include "windows_program/running_player.h"
#include "windows_system/scratch_folder.h"
#include "windows_system/tone_file.h"

namespace nerolith::windows_program {
namespace {

constexpr std::size_t kHeader = 44, kHalf = 352802;

struct RecordingFile : testing::Test {
  RecordingFile() { folder.addFile("songs/a.wav", windows::toneFile(40)); }

  std::wstring wide(const std::string& name) const {
    return windows::systemPath(folder.path(name));
  }
  std::string bytes() const {
    std::ifstream in(folder.path(kTake), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  bool growsTo(std::size_t halves) const {
    return within(15000, [&] {
      WIN32_FILE_ATTRIBUTE_DATA about{};
      return GetFileAttributesExW(wide(kTake).c_str(), GetFileExInfoStandard, &about) &&
             about.nFileSizeLow >= kHeader + halves * kHalf;
    });
  }
  windows::SystemHandle opened(DWORD access, DWORD sharing) const {
    return windows::SystemHandle(CreateFileW(wide(kTake).c_str(), access, sharing, nullptr,
                                             OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  }

  void open(const RunningPlayer& player) {
    player.altKey('O');
    ASSERT_TRUE(player.menu());
    for (const WPARAM code : {VK_UP, VK_UP, VK_RETURN})
      PostMessageW(player.window(), WM_KEYDOWN, code, 1);
    section = player.window(L"Nerolith recording section");
    ASSERT_TRUE(section);
  }
  HWND key(const wchar_t* caption) const {
    return FindWindowExW(section, nullptr, L"BUTTON", caption);
  }
  /// Whether the window tells that it cannot have the file.
  bool saysWhy(const RunningPlayer& player, int milliseconds) const {
    const std::string start = folder.path(kTake) + ": ";
    return player.saysSomethingLike(section, windows::wideText(start), milliseconds);
  }
  bool choose(const RunningPlayer& player) const {
    player.press(key(L"Select Filename for Recording"));
    return player.chooseFile(L"Select Filename to record to",
                             windows::wideText(folder.path(kTake)));
  }
  void overwrite(const RunningPlayer& player) const {
    ASSERT_TRUE(choose(player));
    const HWND question = player.message();
    ASSERT_TRUE(question);
    EXPECT_EQ(player.words(question), L"File already exists. Overwrite file?");
    PostMessageW(question, WM_COMMAND, IDYES, 0);
    ASSERT_TRUE(within(10000, [question] { return !IsWindow(question); }));
  }

  static constexpr const char* kTake = "take.wav";
  const FreshSettings settings;
  const windows::ScratchFolder folder;
  HWND section = nullptr;
};

TEST_F(RecordingFile, IsNobodyElsesToWriteOrToRemoveWhileItIsRecorded) {
  RunningPlayer player(windows::wideText(folder.path("songs")) + L"\\,1");
  ASSERT_NO_FATAL_FAILURE(open(player));
  ASSERT_TRUE(choose(player));
  player.press(key(L"Start playing and record the sound to the selected file"));
  ASSERT_TRUE(growsTo(1));
  const DWORD all = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  EXPECT_FALSE(opened(GENERIC_READ, 0));
  EXPECT_EQ(GetLastError(), DWORD{ERROR_SHARING_VIOLATION});
  EXPECT_FALSE(opened(GENERIC_READ | GENERIC_WRITE, all));
  EXPECT_FALSE(opened(DELETE, all));
  EXPECT_FALSE(DeleteFileW(wide(kTake).c_str()));
  EXPECT_FALSE(MoveFileW(wide(kTake).c_str(), wide("other.wav").c_str()));
  EXPECT_TRUE(opened(GENERIC_READ, all)) << "nobody may listen to it";
  ASSERT_TRUE(growsTo(2));
  player.press(key(L"Exit"));
  EXPECT_TRUE(within(10000, [&] { return bool(opened(GENERIC_READ | GENERIC_WRITE, 0)); }));
  const std::string wave = bytes();
  std::uint32_t sizes[2] = {};
  std::memcpy(&sizes[0], wave.data() + 4, 4);
  std::memcpy(&sizes[1], wave.data() + 40, 4);
  EXPECT_EQ(sizes[0], sizes[1] + kHeader);
  // Behind each half and behind the rest lies a sample that the header does not count.
  EXPECT_EQ(wave.size(), kHeader + sizes[1] + 2 * (sizes[1] / (kHalf - 2) + 1));
  EXPECT_EQ(player.close(), 0u);
}

TEST_F(RecordingFile, ThatAnotherProgramHoldsIsSaidSoAndLeftToIt) {
  folder.addFile(kTake, "theirs");
  RunningPlayer player(windows::wideText(folder.path("songs")) + L"\\,1");
  ASSERT_NO_FATAL_FAILURE(open(player));
  {
    const windows::SystemHandle theirs = opened(GENERIC_READ, 0);
    ASSERT_TRUE(theirs);
    ASSERT_NO_FATAL_FAILURE(overwrite(player));
    EXPECT_TRUE(saysWhy(player, 10000));
  }
  EXPECT_EQ(bytes(), "theirs");
  ASSERT_NO_FATAL_FAILURE(overwrite(player));
  EXPECT_TRUE(within(10000, [&] { return !saysWhy(player, 0); }));
  EXPECT_EQ(GetFileAttributesW(wide(kTake).c_str()), INVALID_FILE_ATTRIBUTES);
  EXPECT_EQ(player.close(), 0u);
}

}  // namespace
}  // namespace nerolith::windows_program
