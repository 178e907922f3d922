#include "platform/windows/windows_file_system.h"

#include <gtest/gtest.h>

#include "platform/failure.h"
#include "windows_system/scratch_folder.h"

namespace nerolith::windows {
namespace {

using Names = std::vector<std::string>;

TEST(WindowsFileSystem, PathsLongerThanTheShortFormWork) {
  const ScratchFolder scratch;
  const std::string part(100, 'p'), deep = part + '/' + part + '/' + part;
  scratch.addFile(deep + "/song.mp3");
  WindowsFileSystem files;
  EXPECT_GT(scratch.path(deep).size(), 300u);
  EXPECT_EQ(files.folders(scratch.path(part + '/' + part)), Names{part});
  EXPECT_EQ(files.files(scratch.path(deep), "*.mp?"), Names{"song.mp3"});
  EXPECT_GT(files.lastModified(scratch.path(deep + "/song.mp3")), 44000);
  files.setCurrentDirectory(scratch.path(deep));
  EXPECT_EQ(files.currentDirectory(), scratch.path(deep));
  EXPECT_TRUE(files.fileExists("song.mp3"));
  files.deleteFile("song.mp3");
  EXPECT_FALSE(files.fileExists("song.mp3"));
}

TEST(WindowsFileSystem, NamesThatStandForDevicesAreOrdinaryNames) {
  const ScratchFolder scratch;
  WindowsFileSystem files;
  for (const char* name : {"nul", "CON", "com1", "aux.mp3", "lpt9.txt"})
    EXPECT_FALSE(files.fileExists(scratch.path(name))) << name;
  scratch.addFile("aux.mp3");
  scratch.addFile("nul");
  EXPECT_EQ(files.files(scratch.path(), "*"), (Names{"aux.mp3", "nul"}));
  EXPECT_TRUE(files.fileExists(scratch.path("aux.mp3")));
  EXPECT_GT(files.lastModified(scratch.path("nul")), 44000);
  files.deleteFile(scratch.path("nul"));
  EXPECT_EQ(files.files(scratch.path(), "*"), Names{"aux.mp3"});
}

TEST(WindowsFileSystem, DotsAndBlanksAtTheEndOfANameAreKept) {
  const ScratchFolder scratch;
  const Names odd{"ends in a blank.mp3 ", "ends in dots.mp3..."};
  for (const std::string& name : odd) scratch.addFile(name);
  scratch.addFile("ends in dots.mp3");
  WindowsFileSystem files;
  files.deleteFile(scratch.path(odd[1]));
  EXPECT_TRUE(files.fileExists(scratch.path("ends in dots.mp3")));
  EXPECT_FALSE(files.fileExists(scratch.path(odd[1])));
  EXPECT_TRUE(files.fileExists(scratch.path(odd[0])));
}

TEST(WindowsFileSystem, NamesThatAreNoStrictTextComeBack) {
  const ScratchFolder scratch;
  const std::string odd = utf8Text(std::wstring{L'a', wchar_t(0xD83D), L'.', L'm', L'p', L'3'});
  try {
    scratch.addFile(odd);
  } catch (const std::runtime_error&) {
    GTEST_SKIP() << "This disk takes no surrogate alone in a name.";
  }
  const WindowsFileSystem files;
  EXPECT_EQ(files.files(scratch.path(), "*.mp?"), Names{odd});
  EXPECT_TRUE(files.fileExists(scratch.path(odd)));
}

TEST(WindowsFileSystem, LeavesOutWhatIsHidden) {
  const ScratchFolder scratch;
  scratch.addFile("song.mp3");
  scratch.addFile("hidden.mp3");
  scratch.addFolder("shown");
  scratch.addFolder("hidden");
  scratch.addAttributes("hidden.mp3", FILE_ATTRIBUTE_HIDDEN);
  scratch.addAttributes("hidden", FILE_ATTRIBUTE_HIDDEN);
  if (!(scratch.attributes("hidden.mp3") & FILE_ATTRIBUTE_HIDDEN))
    GTEST_SKIP() << "This disk keeps no hidden files.";
  const WindowsFileSystem files;
  EXPECT_EQ(files.files(scratch.path(), "*"), Names{"song.mp3"});
  EXPECT_EQ(files.folders(scratch.path()), Names{"shown"});
}

TEST(WindowsFileSystem, APlainFileIsAnArchiveAndNothingElse) {
  const ScratchFolder scratch;
  scratch.addFile("song.mp3");
  scratch.addAttributes("song.mp3", FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN);
  ASSERT_TRUE(scratch.attributes("song.mp3") & FILE_ATTRIBUTE_READONLY);
  WindowsFileSystem files;
  files.makePlainArchive(scratch.path("song.mp3"));
  EXPECT_EQ(scratch.attributes("song.mp3"), DWORD{FILE_ATTRIBUTE_ARCHIVE});
}

TEST(WindowsFileSystem, ADriveThatIsNotThereIsAFailureAtOnce) {
  const DWORD letters = GetLogicalDrives();
  char letter = 'B';
  while (letters >> (letter - 'A') & 1) ++letter;
  const std::string root{letter, ':', '\\'};
  WindowsFileSystem files;
  EXPECT_THROW(files.files(root, "*"), platform::Failure);
  EXPECT_THROW(files.setCurrentDirectory(root), platform::Failure);
  EXPECT_THROW(files.driveOf(root + "a"), platform::Failure);
  EXPECT_THROW(files.currentFolderOf(root), platform::Failure);
  EXPECT_FALSE(files.folderExists(root));
}

TEST(WindowsFileSystem, AShareThatIsNotThereIsAFailure) {
  WindowsFileSystem files;
  const std::string share = R"(\\no such server.invalid\music)";
  EXPECT_THROW(files.folders(share), platform::Failure);
  EXPECT_THROW(files.driveOf(share), platform::Failure);
  EXPECT_FALSE(files.fileExists(share + "\\a.mp3"));
  EXPECT_EQ(files.ancestors(share + "\\a"), (Names{share + '\\', share + "\\a"}));
}

TEST(WindowsFileSystem, AFileInTheFoldersPlaceIsAFailure) {
  const ScratchFolder scratch;
  scratch.addFile("song.mp3");
  WindowsFileSystem files;
  EXPECT_THROW(files.folders(scratch.path("song.mp3")), platform::Failure);
  EXPECT_THROW(files.setCurrentDirectory(scratch.path("song.mp3")), platform::Failure);
  EXPECT_FALSE(files.fileExists(scratch.path("song.mp3/below.mp3")));
}

TEST(WindowsFileSystem, AZeroCharacterNamesNoOtherFile) {
  const ScratchFolder scratch;
  scratch.addFile("song.mp3");
  WindowsFileSystem files;
  const std::string tricky = scratch.path("song.mp3") + std::string("\0.bak", 5);
  EXPECT_FALSE(files.fileExists(tricky));
  EXPECT_THROW(files.deleteFile(tricky), platform::Failure);
  EXPECT_TRUE(files.fileExists(scratch.path("song.mp3")));
}

TEST(WindowsFileSystem, WildcardsInAPathMatchNothing) {
  const ScratchFolder scratch;
  scratch.addFile("song.mp3");
  WindowsFileSystem files;
  EXPECT_FALSE(files.fileExists(scratch.path("*.mp3")));
  EXPECT_THROW(files.deleteFile(scratch.path("*.mp3")), platform::Failure);
  EXPECT_THROW(files.files(scratch.path("*"), "*"), platform::Failure);
  EXPECT_TRUE(files.fileExists(scratch.path("song.mp3")));
}

TEST(WindowsFileSystem, TheProcessItselfStaysWhereItIs) {
  const ScratchFolder scratch;
  scratch.addFolder("Rock");
  WindowsFileSystem files;
  files.setCurrentDirectory(scratch.path("Rock"));
  wchar_t process[MAX_PATH];
  ASSERT_GT(GetCurrentDirectoryW(MAX_PATH, process), 0u);
  EXPECT_NE(utf8Text(process), scratch.path("Rock"));
}

TEST(WindowsFileSystem, AFailureCarriesTheSystemsNumberAndWords) {
  try {
    WindowsFileSystem().lastModified("C:\\no such file");
    FAIL() << "no failure";
  } catch (const platform::Failure& failure) {
    EXPECT_EQ(failure.code(), ERROR_FILE_NOT_FOUND);
    EXPECT_GT(std::string(failure.what()).size(), std::string("C:\\no such file: ").size());
    EXPECT_EQ(std::string(failure.what()).find('\n'), std::string::npos);
  }
}

TEST(WindowsFileSystem, TheUsersFolderIsTheOneForPrograms) {
  wchar_t before[MAX_PATH] = L"";
  GetEnvironmentVariableW(L"APPDATA", before, MAX_PATH);
  SetEnvironmentVariableW(L"APPDATA", L"D:\\Own");
  EXPECT_EQ(WindowsFileSystem().userDataFolder(), R"(D:\Own\Velmarion)");
  SetEnvironmentVariableW(L"APPDATA", nullptr);
  EXPECT_TRUE(WindowsFileSystem().userDataFolder().ends_with(R"(\Velmarion)"));
  EXPECT_GT(rootLength(WindowsFileSystem().userDataFolder()), 0u);
  SetEnvironmentVariableW(L"APPDATA", before);
}

}  // namespace
}  // namespace nerolith::windows
