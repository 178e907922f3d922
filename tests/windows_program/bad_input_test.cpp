#include <windows.h>

#include <gtest/gtest.h>

#include "windows_program/running_player.h"
#include "windows_system/scratch_folder.h"
#include "windows_system/tone_file.h"

namespace nerolith::windows_program {
namespace {

constexpr const wchar_t* kModes = L"Microsoft Visual Basic AddIns\\Setting";
constexpr const wchar_t* kKeys = L"Nerolith\\Setting";
constexpr const wchar_t* kPath = L"Velmarion\\Path";

// Started like this, the player shows its window, has nothing to say, and closes as ever.
void standsIt(const std::wstring& commandLine) {
  RunningPlayer player(commandLine);
  EXPECT_FALSE(player.message(300));
  EXPECT_EQ(player.close(), 0u);
}

TEST(BadInput, ADriveThatIsNotReadyOrNotThere) {
  const FreshSettings settings;
  standsIt(L"Q:\\music\\,2");
  settings.put(kPath, L"path", L"Q:\\music");
  settings.put(kModes, L"setting", L"2");
  standsIt(L"");
}

TEST(BadInput, AShareThatIsNotThere) {
  const FreshSettings settings;
  standsIt(L"\\\\nowhere\\share\\music\\,2");
  settings.put(kPath, L"path", L"\\\\nowhere\\share\\music");
  standsIt(L"");
}

TEST(BadInput, ReservedNamesAndNamesThatCannotBe) {
  const FreshSettings settings;
  for (const wchar_t* line : {L"C:\\nul,1", L"C:\\con.mp3,2", L"C:\\a|b<>.mp3,2", L"C:\\*.mp3,2",
                              L"\\\\.\\pipe\\x,2", L",,,,", L"2,2,2", L"\"\""})
    standsIt(line);
}

TEST(BadInput, ACommandLineOfThirtyThousandSigns) {
  const FreshSettings settings;
  standsIt(L"C:\\" + std::wstring(30000, L'x') + L",2");
}

TEST(BadInput, SettingsOfAnotherTypeAndOfAMegabyte) {
  const FreshSettings settings;
  const DWORD number = 3;
  settings.put(kModes, L"setting", REG_DWORD, &number, sizeof number);
  settings.put(kModes, L"fadem", REG_BINARY, "\1\2\3", 3);
  settings.put(kModes, L"color", std::wstring(1 << 19, L'9'));
  settings.put(kModes, L"fadelen", L"nonsense");
  settings.put(kModes, L"lo", std::wstring(1 << 19, L'T'));
  settings.put(kKeys, L"key3", std::wstring(1 << 19, L'k'));
  settings.put(kPath, L"path", std::wstring(1 << 19, L'p'));
  settings.put(kPath, L"plname", REG_MULTI_SZ, L"a\0b\0", 10);
  standsIt(L"");
  standsIt(L"3");
}

// Every kind that the pattern lists is tried, and what cannot be played is passed over.
TEST(BadInput, AFolderOfRubbishUnderEveryEndingShowsOneMessageAndIsUsableAfterwards) {
  const FreshSettings settings;
  const windows::ScratchFolder folder;
  for (int i = 0; i < 30; ++i) {
    const char* endings[] = {"mp3", "wav", "wma", "asf", "mid", "aif", "mpg"};
    folder.addFile(std::to_string(100 + i) + "." + endings[i % 7], std::string(3000, 'x'));
  }
  folder.addFile("999.wav", windows::toneFile(30));
  RunningPlayer player(windows::wideText(folder.path()) + L"\\,2");
  const HWND box = player.message(20000);
  ASSERT_TRUE(box);
  PostMessageW(box, WM_COMMAND, IDOK, 0);
  EXPECT_TRUE(within(10000, [&] { return !IsWindow(box); }));
  EXPECT_FALSE(player.message(1000)) << "the message is shown again";
  player.key(player.list(), VK_END);
  player.key(player.list(), VK_SPACE);
  EXPECT_TRUE(player.shows(L"999"));
  EXPECT_EQ(player.close(), 0u);
}

}  // namespace
}  // namespace nerolith::windows_program
