#include <algorithm>
#include "controls/event_count.h"
#include "library/browser_window.h"
#include "platform/failure.h"

namespace nerolith::library {
namespace {

struct BrowserTrouble : BrowserWindow {
  void SetUp() override {
    BrowserWindow::SetUp();
    songs.setPlayed(1, true);
    songs.setRecent(2, true);
  }

  void expectWhole() {
    EXPECT_EQ(names(), (Names{"a.mp3", "b.mp3", "c.mp3"}));
    EXPECT_TRUE(songs.played(1));
    EXPECT_TRUE(songs.recent(2));
    EXPECT_EQ(form.Text2.text(), "C:\\Music\\");
    EXPECT_EQ(form.Dir1.path(), "C:\\Music");
    EXPECT_EQ(form.Dir1.folders(), Names{"Jazz"});
    EXPECT_EQ(form.Drive1.drive(), "C:\\");
    EXPECT_EQ(browser.folder(), "C:\\Music");
    EXPECT_EQ(form.File1.names(), (Names{"a.mp3", "b.mp3", "c.mp3"}));
    EXPECT_FALSE(form.List1.hidden());
  }
};

TEST_F(BrowserTrouble, AnUnreadableFolderLeavesAllWholeAndIsTold) {
  machine.files.setUnreadable("C:\\Music\\Jazz");
  form.Dir1.userOpen("C:\\Music\\Jazz");
  expectWhole();
  EXPECT_EQ(notices, Names{"C:\\Music\\Jazz: cannot be read"});
}

TEST_F(BrowserTrouble, AVanishedFolderLeavesAllWholeAndIsTold) {
  EXPECT_FALSE(browser.setFolder("C:\\Gone"));
  expectWhole();
  EXPECT_EQ(notices.size(), 1U);
}

TEST_F(BrowserTrouble, ADriveThatIsNotReadyIsGivenBackForTheShownOne) {
  machine.files.removeDrive("D:\\");
  form.Drive1.setDrive("D:\\");
  expectWhole();
  EXPECT_FALSE(notices.empty());
}

TEST_F(BrowserTrouble, ADriveWhoseFolderCannotBeReadShowsItsRoot) {
  machine.files.setUnreadable("D:\\Empty");
  machine.files.setCurrentDirectory("D:\\Empty");
  form.Drive1.setDrive("D:\\");
  EXPECT_EQ(names(), Names{"d.wav"});
  EXPECT_EQ(form.Drive1.drive(), "D:\\");
  EXPECT_EQ(notices.back(), "");
}

TEST_F(BrowserTrouble, APlaylistOutlivesADriveThatIsNotReady) {
  importPlaylist({"X:\\x.mp3"});
  songs.setPlayed(0, true);
  machine.files.removeDrive("D:\\");
  form.Drive1.setDrive("D:\\");
  EXPECT_EQ(names(), Names{"X:\\x.mp3"});
  EXPECT_EQ(songs.mode(), ListMode::Playlist);
  EXPECT_TRUE(songs.played(0));
}

TEST_F(BrowserTrouble, APlaylistOutlivesARememberedFolderThatIsGone) {
  importPlaylist({"X:\\x.mp3"});
  remembered = "C:\\Gone";
  form.Drive1.gotFocus.raise();
  EXPECT_EQ(songs.mode(), ListMode::Playlist);
  EXPECT_EQ(names(), Names{"X:\\x.mp3"});
}

TEST_F(BrowserTrouble, RefreshOfAFolderThatVanishedWhileShownKeepsTheList) {
  machine.files.remove("C:\\Music");
  songs.listExhausted = true;
  browser.refresh();
  expectWhole();
  EXPECT_TRUE(songs.listExhausted);
  EXPECT_EQ(notices, Names{"C:\\Music: no such folder"});
}

TEST_F(BrowserTrouble, TheNoticeGoesOnceAFolderIsShownAgain) {
  browser.setFolder("C:\\Gone");
  browser.setFolder("C:\\Music\\Jazz");
  browser.setFolder("C:\\Music");
  EXPECT_EQ(notices.size(), 2U);
  EXPECT_EQ(notices.back(), "");
}

TEST_F(BrowserTrouble, TheNoticeStaysWhenTheShownFolderIsSetAgain) {
  browser.setFolder("C:\\Gone");
  EXPECT_TRUE(browser.setFolder("C:\\Music"));
  EXPECT_EQ(notices.size(), 1U);
}

TEST_F(BrowserTrouble, AFolderThatCannotBecomeCurrentIsListedAllTheSame) {
  machine.failDoorCall(3);
  EXPECT_TRUE(browser.setFolder("C:\\Music\\Jazz"));
  EXPECT_EQ(names(), Names{"j.mp3"});
  EXPECT_EQ(machine.files.currentDirectory(), "C:\\Music");
}

TEST_F(BrowserTrouble, NothingShownYetStaysEmptyAndRefreshDoesNothing) {
  forms::MainForm f;
  SongList list(f.List1, f.Text1, f.Text2);
  FolderBrowser fresh({f.form, f.Drive1, f.Dir1, f.File1, f.Command5, f.Label9}, list,
                      machine.files, [](const std::string& fallback) { return fallback; }, {});
  EXPECT_FALSE(fresh.setFolder("C:\\Gone"));
  fresh.refresh();
  f.Dir1.userClick();
  EXPECT_EQ(f.Text2.text(), "");
  EXPECT_EQ(f.Dir1.path(), "");
  EXPECT_EQ(f.List1.count(), 0);
}

/// Whichever door call fails, an action either shows the new folder whole or leaves the old one.
TEST_F(BrowserTrouble, AnyFailingDoorCallLeavesOneFolderWhole) {
  for (std::uint64_t n = 1; n <= 12; ++n) {
    ASSERT_TRUE(browser.setFolder("C:\\Music"));
    songs.setPlayed(1, true);
    songs.setRecent(2, true);
    const std::uint64_t faults = machine.doorway.faults();
    machine.failDoorCall(n);
    form.Drive1.setDrive("D:\\");
    const bool struck = machine.doorway.faults() > faults;
    machine.failDoorCall(0);
    EXPECT_TRUE(struck || n > 4) << n;
    if (browser.folder() == "C:\\Music") {
      expectWhole();
    } else {
      EXPECT_EQ(names(), Names{"d.wav"}) << n;
      EXPECT_EQ(form.Text2.text(), "D:\\") << n;
      EXPECT_EQ(form.Drive1.drive(), "D:\\") << n;
      EXPECT_FALSE(songs.played(1)) << n;
    }
  }
}

TEST_F(BrowserTrouble, NamesThatAreNoTextAreListedAsTheyStand) {
  const std::string bytes = "\xFF\xFE \"quoted\"\nline.mp3";
  const std::string longest = std::string(251, 'x') + ".mp3";
  machine.files.addFile("C:\\Odd\\" + bytes);
  machine.files.addFile("C:\\Odd\\" + longest);
  browser.setFolder("C:\\Odd");
  ASSERT_EQ(names().size(), 2U);
  EXPECT_NE(std::find(names().begin(), names().end(), bytes), names().end());
  EXPECT_NE(std::find(names().begin(), names().end(), longest), names().end());
}

TEST_F(BrowserTrouble, FiftyThousandFilesAreListedAndTheTagsStayInTheirRange) {
  machine.recordTrace(false);
  for (int i = 0; i < 50'000; ++i)
    machine.files.addFile("C:\\Huge\\" + std::to_string(100'000 + i) + ".mp3");
  browser.setFolder("C:\\Huge");
  EXPECT_EQ(form.List1.count(), 50'000);
  songs.setPlayed(10'000, true);
  EXPECT_TRUE(songs.played(10'000));
  EXPECT_THROW(songs.setPlayed(10'001, true), platform::Failure);
  EXPECT_THROW(songs.played(-1), platform::Failure);
}

}  // namespace
}  // namespace nerolith::library
