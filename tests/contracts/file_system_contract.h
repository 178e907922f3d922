// What every file system promises, whatever the machine.
//
// A backend for the suite is a default-constructible struct with
//   platform::FileSystem& files();
//   std::string path(std::string relative);  // "Rock/a.mp3" below a fresh, empty folder; "" itself
//   void addFile(std::string relative, double modified = 44000);  // local time, as a day number
//   void addFolder(std::string relative);
//   void remove(std::string relative);       // a file, or a folder with all in it
//   void protect(std::string relative);      // makes a file read-only
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/failure.h"
#include "platform/file_system.h"

namespace nerolith::contracts {

using Names = std::vector<std::string>;

inline constexpr char kPlayerPattern[] = "*.mp?;*.wav;*wma;*.asf;*.mid;*.ai?";

template <typename Backend>
class FileSystemContract : public ::testing::Test {
 protected:
  platform::FileSystem& files() { return backend.files(); }
  std::string path(const std::string& relative) { return backend.path(relative); }

  Backend backend;
};

TYPED_TEST_SUITE_P(FileSystemContract);

TYPED_TEST_P(FileSystemContract, ListsNothingInAnEmptyFolder) {
  EXPECT_EQ(this->files().files(this->path(""), "*"), Names());
  EXPECT_EQ(this->files().folders(this->path("")), Names());
}

TYPED_TEST_P(FileSystemContract, ListsTheOneFile) {
  this->backend.addFile("one.mp3");
  EXPECT_EQ(this->files().files(this->path(""), kPlayerPattern), Names{"one.mp3"});
}

TYPED_TEST_P(FileSystemContract, AdmitsWhatThePlayersPatternAdmits) {
  for (const char* name :
       {"song.mp2", "song.mp3", "song.mpg", "song.mp", "song.mpeg", "a.wav", "songwma", "song.wma",
        "song.wmv", "x.asf", "x.mid", "x.midi", "y.aif", "y.ai", "y.aiff", "notes.txt", "LOUD.MP3"})
    this->backend.addFile(name);
  EXPECT_EQ(this->files().files(this->path(""), kPlayerPattern),
            (Names{"a.wav", "LOUD.MP3", "song.mp2", "song.mp3", "song.mpg", "song.wma", "songwma",
                   "x.asf", "x.mid", "y.aif"}));
}

TYPED_TEST_P(FileSystemContract, SortsWithoutRegardToCase) {
  for (const char* name : {"b.mp3", "C.mp3", "a.mp3", "\xC3\x84rger.mp3", "Z.mp3"})
    this->backend.addFile(name);
  EXPECT_EQ(this->files().files(this->path(""), "*"),
            (Names{"a.mp3", "\xC3\x84rger.mp3", "b.mp3", "C.mp3", "Z.mp3"}));
}

TYPED_TEST_P(FileSystemContract, KeepsFilesAndFoldersApart) {
  this->backend.addFile("Rock/inside.mp3");
  this->backend.addFolder("folder.mp3");
  this->backend.addFile("song.mp3");
  EXPECT_EQ(this->files().folders(this->path("")), (Names{"folder.mp3", "Rock"}));
  EXPECT_EQ(this->files().files(this->path(""), "*.mp3"), Names{"song.mp3"});
  EXPECT_TRUE(this->files().folderExists(this->path("Rock")));
  EXPECT_FALSE(this->files().fileExists(this->path("Rock")));
  EXPECT_TRUE(this->files().fileExists(this->path("song.mp3")));
  EXPECT_FALSE(this->files().folderExists(this->path("song.mp3")));
}

TYPED_TEST_P(FileSystemContract, PassesOddNamesThroughUnharmed) {
  const Names odd{"it's a; song.mp3", "two  blanks .mp3", "50% & more #1.mp3", "\xE2\x98\x83.mp3"};
  for (const std::string& name : odd) {
    this->backend.addFile(name);
    EXPECT_TRUE(this->files().fileExists(this->path(name))) << name;
  }
  EXPECT_EQ(this->files().files(this->path(""), "*.mp3").size(), odd.size());
}

TYPED_TEST_P(FileSystemContract, FailsForAFolderThatIsNotThere) {
  EXPECT_THROW(this->files().files(this->path("gone"), "*"), platform::Failure);
  EXPECT_THROW(this->files().folders(this->path("gone")), platform::Failure);
  EXPECT_THROW(this->files().setCurrentDirectory(this->path("gone")), platform::Failure);
  EXPECT_THROW(this->files().lastModified(this->path("gone")), platform::Failure);
  EXPECT_THROW(this->files().deleteFile(this->path("gone")), platform::Failure);
  EXPECT_THROW(this->files().makePlainArchive(this->path("gone")), platform::Failure);
  EXPECT_FALSE(this->files().folderExists(this->path("gone")));
}

TYPED_TEST_P(FileSystemContract, NamesThePathInAFailure) {
  try {
    (void)this->files().folders(this->path("gone"));
    FAIL() << "no failure";
  } catch (const platform::Failure& failure) {
    EXPECT_NE(std::string(failure.what()).find(this->path("gone")), std::string::npos);
  }
}

TYPED_TEST_P(FileSystemContract, NoticesThatAShownFolderVanished) {
  this->backend.addFile("Shown/a.mp3");
  EXPECT_EQ(this->files().files(this->path("Shown"), "*").size(), 1u);
  this->backend.remove("Shown");
  EXPECT_THROW(this->files().files(this->path("Shown"), "*"), platform::Failure);
  EXPECT_FALSE(this->files().fileExists(this->path("Shown/a.mp3")));
}

TYPED_TEST_P(FileSystemContract, TheCurrentFolderIsRememberedForItsDrive) {
  this->backend.addFolder("Rock");
  this->files().setCurrentDirectory(this->path("Rock"));
  EXPECT_EQ(this->files().currentDirectory(), this->path("Rock"));
  const std::string drive = this->files().driveOf(this->path("Rock"));
  EXPECT_EQ(this->files().currentFolderOf(drive), this->path("Rock"));
}

TYPED_TEST_P(FileSystemContract, ADriveWhoseFolderVanishedShowsItsRoot) {
  this->backend.addFolder("Rock");
  this->files().setCurrentDirectory(this->path("Rock"));
  this->files().setCurrentDirectory(this->path(""));
  this->backend.addFolder("Jazz");
  this->files().setCurrentDirectory(this->path("Jazz"));
  const std::string drive = this->files().driveOf(this->path(""));
  this->backend.remove("Jazz");
  EXPECT_EQ(this->files().currentFolderOf(drive), drive);
}

TYPED_TEST_P(FileSystemContract, DrivesHoldTheirFoldersAndAreNamed) {
  const auto drives = this->files().drives();
  ASSERT_FALSE(drives.empty());
  for (const auto& drive : drives) {
    EXPECT_FALSE(drive.label.empty());
    EXPECT_EQ(this->files().driveOf(drive.root), drive.root);
  }
  EXPECT_THROW(this->files().currentFolderOf(this->path("no drive")), platform::Failure);
}

TYPED_TEST_P(FileSystemContract, AncestorsLeadFromTheRootToTheFolder) {
  this->backend.addFolder("Rock/Live");
  const Names way = this->files().ancestors(this->path("Rock/Live"));
  ASSERT_GE(way.size(), 3u);
  EXPECT_EQ(way.back(), this->path("Rock/Live"));
  EXPECT_EQ(way[way.size() - 2], this->path("Rock"));
  EXPECT_EQ(way.front().back(), this->files().separator());
  EXPECT_EQ(this->files().ancestors(way.front()), Names{way.front()});
  for (const std::string& folder : way) EXPECT_TRUE(this->files().folderExists(folder)) << folder;
}

TYPED_TEST_P(FileSystemContract, TellsTheLocalTimeOfTheLastChange) {
  this->backend.addFile("old.mp3", 40000.25);
  EXPECT_NEAR(this->files().lastModified(this->path("old.mp3")), 40000.25, 1e-5);
}

TYPED_TEST_P(FileSystemContract, DeletesAReadOnlyFileOnceItIsPlain) {
  this->backend.addFile("done.mp3");
  this->backend.protect("done.mp3");
  this->files().makePlainArchive(this->path("done.mp3"));
  this->files().deleteFile(this->path("done.mp3"));
  EXPECT_FALSE(this->files().fileExists(this->path("done.mp3")));
}

TYPED_TEST_P(FileSystemContract, NeverDeletesAFolder) {
  this->backend.addFolder("Rock");
  EXPECT_THROW(this->files().deleteFile(this->path("Rock")), platform::Failure);
  EXPECT_TRUE(this->files().folderExists(this->path("Rock")));
}

TYPED_TEST_P(FileSystemContract, ListsAsManyFilesAsThereAre) {
  for (int i = 0; i < 10001; ++i) this->backend.addFile("song " + std::to_string(i) + ".mp3");
  const Names names = this->files().files(this->path(""), kPlayerPattern);
  EXPECT_EQ(names.size(), 10001u);
  EXPECT_EQ(names.front(), "song 0.mp3");
}

TYPED_TEST_P(FileSystemContract, TheProgramLiesInAFolder) {
  EXPECT_TRUE(this->files().folderExists(this->files().programFolder()));
  EXPECT_FALSE(this->files().userDataFolder().empty());
}

REGISTER_TYPED_TEST_SUITE_P(FileSystemContract, ListsNothingInAnEmptyFolder, ListsTheOneFile,
                            AdmitsWhatThePlayersPatternAdmits, SortsWithoutRegardToCase,
                            KeepsFilesAndFoldersApart, PassesOddNamesThroughUnharmed,
                            FailsForAFolderThatIsNotThere, NamesThePathInAFailure,
                            NoticesThatAShownFolderVanished,
                            TheCurrentFolderIsRememberedForItsDrive,
                            ADriveWhoseFolderVanishedShowsItsRoot,
                            DrivesHoldTheirFoldersAndAreNamed, AncestorsLeadFromTheRootToTheFolder,
                            TellsTheLocalTimeOfTheLastChange, DeletesAReadOnlyFileOnceItIsPlain,
                            NeverDeletesAFolder, ListsAsManyFilesAsThereAre,
                            TheProgramLiesInAFolder);

}  // namespace nerolith::contracts
