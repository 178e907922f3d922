#include "platform/windows/windows_byte_files.h"

#include <gtest/gtest.h>

#include "platform/failure.h"
#include "windows_system/scratch_folder.h"

namespace nerolith::windows {
namespace {

class WindowsBytes : public ::testing::Test {
 protected:
  WindowsBytes() { scratch.addFile("list.m3u", "old\r\n"); }

  std::string contents() { return platform::readWhole(bytes, path); }
  /// As another program has it open.
  SystemHandle heldOpen(DWORD share) const {
    return SystemHandle(CreateFileW(systemPath(path).c_str(), GENERIC_READ, share, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  }

  ScratchFolder scratch;
  const std::string path = scratch.path("list.m3u");
  WindowsFileSystem files;
  WindowsByteFiles bytes{files};
};

TEST_F(WindowsBytes, AFileThatAnotherProgramHoldsIsLeftWholeAndAlone) {
  {
    const SystemHandle held = heldOpen(FILE_SHARE_READ);
    EXPECT_THROW(bytes.replace(path, "new\r\n"), platform::Failure);
    EXPECT_THROW(bytes.append(path, "new\r\n"), platform::Failure);
  }
  EXPECT_EQ(contents(), "old\r\n");
  EXPECT_EQ(scratch.names(), std::vector<std::string>{"list.m3u"});
}

TEST_F(WindowsBytes, AHiddenFileStaysHidden) {
  scratch.addAttributes("list.m3u", FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_ARCHIVE);
  bytes.replace(path, "new\r\n");
  EXPECT_TRUE(scratch.attributes("list.m3u") & FILE_ATTRIBUTE_HIDDEN);
  EXPECT_EQ(contents(), "new\r\n");
}

TEST_F(WindowsBytes, PathsMayBeLong) {
  std::string folder = "f";
  for (int i = 0; i < 12; ++i) folder += "/a folder with a name of some length";
  scratch.addFolder(folder);
  const std::string deep = scratch.path(folder + "/list.m3u");
  ASSERT_GT(deep.size(), 260u);
  bytes.create(deep);
  bytes.append(deep, "a");
  bytes.replace(deep, platform::readWhole(bytes, deep) + "b");
  EXPECT_EQ(platform::readWhole(bytes, deep), "ab");
}

TEST_F(WindowsBytes, ARelativePathCountsFromThePlayersFolder) {
  files.setCurrentDirectory(scratch.path());
  EXPECT_EQ(platform::readWhole(bytes, "list.m3u"), "old\r\n");
}

TEST_F(WindowsBytes, ADeviceIsNoFile) {
  EXPECT_THROW(platform::readWhole(bytes, "\\\\.\\NUL"), platform::Failure);
  EXPECT_THROW(bytes.replace("Z:\\no such drive\\a.m3u", "x"), platform::Failure);
}

TEST_F(WindowsBytes, FailuresCarryTheSystemsNumber) {
  try {
    bytes.append(scratch.path("gone.m3u"), "x");
    FAIL() << "no failure";
  } catch (const platform::Failure& failure) {
    EXPECT_EQ(failure.code(), ERROR_FILE_NOT_FOUND);
  }
}

/// Never returns: the process is ended from outside.
[[noreturn]] void replaceForEver(const std::string& path) {
  WindowsFileSystem files;
  WindowsByteFiles bytes(files);
  for (int round = 0;; ++round)
    bytes.replace(path, std::string(4'000'000, static_cast<char>('a' + round % 26)));
}

// Runs this very test in a second process, which the variable makes the one that dies.
TEST_F(WindowsBytes, ADeathInTheMiddleLeavesTheOldFileWhole) {
  wchar_t victim[MAX_PATH];
  if (GetEnvironmentVariableW(L"NEROLITH_DIES_REPLACING", victim, MAX_PATH))
    replaceForEver(utf8Text(victim));
  wchar_t program[MAX_PATH];
  GetModuleFileNameW(nullptr, program, MAX_PATH);
  SetEnvironmentVariableW(L"NEROLITH_DIES_REPLACING", systemPath(path).c_str());
  for (int round = 0; round < 5; ++round) {
    std::wstring line = L"\"" + std::wstring(program) +
                        L"\" --gtest_filter=WindowsBytes.ADeathInTheMiddleLeavesTheOldFileWhole";
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION child{};
    ASSERT_TRUE(CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                               &start, &child));
    const SystemHandle process(child.hProcess), thread(child.hThread);
    for (int i = 0; i < 500 && contents() == "old\r\n"; ++i) Sleep(20);
    Sleep(static_cast<DWORD>(7 * round));
    TerminateProcess(process.get(), 1);
    WaitForSingleObject(process.get(), 10000);
    const std::string whole = contents();
    EXPECT_EQ(whole.size(), 4'000'000u);
    EXPECT_EQ(whole.find_first_not_of(whole[0]), std::string::npos);
  }
  SetEnvironmentVariableW(L"NEROLITH_DIES_REPLACING", nullptr);
}

}  // namespace
}  // namespace nerolith::windows
