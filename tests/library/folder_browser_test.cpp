#include "library/folder_browser.h"

#include "controls/event_count.h"
#include "library/browser_window.h"

namespace nerolith::library {
namespace {

using controls::EventCount;
using controls::MouseButton;
using platform::simulated::Door;

using Browser = BrowserWindow;

TEST_F(Browser, AFolderFillsTheListWithItsPlayableFiles) {
  EXPECT_EQ(names(), (Names{"a.mp3", "b.mp3", "c.mp3"}));
  EXPECT_EQ(form.Text2.text(), "C:\\Music\\");
  EXPECT_EQ(form.Dir1.path(), "C:\\Music");
  EXPECT_EQ(form.Dir1.folders(), Names{"Jazz"});
  EXPECT_EQ(form.Drive1.drive(), "C:\\");
  EXPECT_EQ(browser.folder(), "C:\\Music");
  EXPECT_EQ(form.List1.listIndex(), 0);
  EXPECT_EQ(songs.listCount(), 3);
}

TEST_F(Browser, OnlyThePatternsNamesAreListed) {
  for (const char* name : {"songwma", "song.wmv", "song.mp2", "song.mpg", "song.aif", "SONG.WMA",
                           "song.aiff", "song.mp", "song.mid", "song.asf", "song.wav", "song.flac"})
    machine.files.addFile(std::string("D:\\Kinds\\") + name);
  browser.setFolder("D:\\Kinds");
  EXPECT_EQ(names(), (Names{"song.aif", "song.asf", "song.mid", "song.mp2", "song.mpg", "song.wav",
                            "SONG.WMA", "songwma"}));
}

TEST_F(Browser, AFolderIsReadBeforeAnythingIsSetAndThenBecomesCurrent) {
  browser.setFolder("C:\\Music\\Jazz");
  EXPECT_EQ(machine.trace({Door::Files}),
            "files.folders C:\\Music\\Jazz | "
            "files.files C:\\Music\\Jazz *.mp?;*.wav;*wma;*.asf;*.mid;*.ai? | "
            "files.cd C:\\Music\\Jazz");
  EXPECT_EQ(machine.files.currentDirectory(), "C:\\Music\\Jazz");
}

TEST_F(Browser, ADriveRootGetsNoSecondSeparator) {
  browser.setFolder("D:\\");
  EXPECT_EQ(form.Text2.text(), "D:\\");
  EXPECT_EQ(form.Drive1.drive(), "D:\\");
  EXPECT_EQ(songs.pathOf("d.wav"), "D:\\d.wav");
}

TEST_F(Browser, AFolderGivenWithItsSeparatorIsTheSameFolder) {
  songs.setPlayed(1, true);
  browser.setFolder("C:\\Music\\");
  EXPECT_EQ(form.Dir1.path(), "C:\\Music");
  EXPECT_TRUE(songs.played(1));
  EXPECT_EQ(machine.trace({Door::Files}), "");
}

TEST_F(Browser, AFolderWithoutSongsEmptiesTheList) {
  songs.setPlayed(0, true);
  browser.setFolder("D:\\Empty");
  EXPECT_EQ(names(), Names{});
  EXPECT_EQ(songs.listCount(), 0);
  EXPECT_EQ(form.List1.listIndex(), -1);
  EXPECT_FALSE(songs.played(0));
  EXPECT_FALSE(form.List1.hidden());
}

TEST_F(Browser, ARefillClearsTagsAndMarksAndSelectsTheCurrentSong) {
  form.Text1.setText("c.mp3");
  songs.setPlayed(1, true);
  songs.setRecent(2, true);
  songs.anyRecent = true;
  form.Dir1.userClick();
  EXPECT_FALSE(songs.played(1));
  EXPECT_FALSE(songs.recent(2));
  EXPECT_FALSE(songs.anyRecent);
  EXPECT_EQ(form.List1.listIndex(), 2);
  EXPECT_TRUE(form.List1.selected(2));
}

TEST_F(Browser, ARefillIsToldToRenderersOnce) {
  const EventCount items(form.List1.itemsChanged), marks(form.List1.marksChanged),
      selection(form.List1.selectionChanged);
  browser.setFolder("C:\\Music\\Jazz");
  EXPECT_EQ(items(), 1);
  EXPECT_EQ(marks(), 1);
  EXPECT_EQ(selection(), 1);
}

TEST_F(Browser, AnotherDriveShowsItsCurrentFolderAndGivesTheListTheFocus) {
  machine.files.setCurrentDirectory("D:\\Empty");
  machine.files.setCurrentDirectory("C:\\Music");
  machine.files.addFile("D:\\Empty\\e.mid");
  const EventCount focus(form.List1.focusRequested);
  importPlaylist({"X:\\x.mp3"});
  form.Drive1.setDrive("D:\\");
  EXPECT_EQ(form.Dir1.path(), "D:\\Empty");
  EXPECT_EQ(names(), Names{"e.mid"});
  EXPECT_EQ(songs.mode(), ListMode::Folder);
  EXPECT_EQ(focus(), 1);
}

TEST_F(Browser, AFolderOpenedInTheFolderListIsListed) {
  form.Dir1.userOpen("C:\\Music\\Jazz");
  EXPECT_EQ(names(), Names{"j.mp3"});
  EXPECT_EQ(form.Text2.text(), "C:\\Music\\Jazz\\");
  EXPECT_EQ(form.Dir1.ancestors(), (Names{"C:\\", "C:\\Music", "C:\\Music\\Jazz"}));
}

TEST_F(Browser, AFolderOpenedAcrossDrivesTakesTheDriveListAlong) {
  form.Dir1.userOpen("D:\\");
  EXPECT_EQ(form.Drive1.drive(), "D:\\");
  EXPECT_EQ(names(), Names{"d.wav"});
}

TEST_F(Browser, AClickOnTheFolderListEndsThePlaylistAndListsTheFolder) {
  importPlaylist({"X:\\x.mp3"});
  form.Text2.setText("");
  form.Dir1.userClick();
  EXPECT_EQ(songs.mode(), ListMode::Folder);
  EXPECT_EQ(songs.pathOf(form.List1.item(0)), "C:\\Music\\a.mp3");
}

TEST_F(Browser, TheFolderListIsShownWhileTheDriveListIsUsed) {
  EXPECT_FALSE(form.Dir1.visible());
  for (base::Signal<>* hides :
       {&form.form.mouseMoved, &form.List1.mouseMoved, &form.form.activate}) {
    form.Drive1.gotFocus.raise();
    EXPECT_TRUE(form.Dir1.visible());
    hides->raise();
    EXPECT_FALSE(form.Dir1.visible());
  }
}

TEST_F(Browser, TheDriveListsFocusInFolderModeLeavesTheFolder) {
  songs.setPlayed(0, true);
  remembered = "D:\\";
  form.Drive1.gotFocus.raise();
  EXPECT_EQ(browser.folder(), "C:\\Music");
  EXPECT_TRUE(songs.played(0));
}

TEST_F(Browser, TheDriveListsFocusInPlaylistModeReturnsToTheRememberedFolder) {
  remembered = "C:\\Music\\Jazz";
  importPlaylist({"X:\\x.mp3"});
  form.Drive1.gotFocus.raise();
  EXPECT_EQ(names(), Names{"j.mp3"});
  EXPECT_EQ(songs.mode(), ListMode::Folder);
}

TEST_F(Browser, TheReturnListsTheFolderAgainWhenItNeverChanged) {
  remembered = "C:\\Music";
  importPlaylist({"X:\\x.mp3"});
  form.Drive1.gotFocus.raise();
  EXPECT_EQ(names(), (Names{"a.mp3", "b.mp3", "c.mp3"}));
}

TEST_F(Browser, WithNoRememberedFolderTheReturnIsToTheCurrentDirectory) {
  machine.files.setCurrentDirectory("D:\\");
  importPlaylist({"X:\\x.mp3"});
  form.Drive1.gotFocus.raise();
  EXPECT_EQ(browser.folder(), "D:\\");
}

TEST_F(Browser, TheDriveListsFocusFindsNewDrives) {
  machine.files.addDrive("E:\\", "E: stick");
  form.Drive1.gotFocus.raise();
  EXPECT_EQ(form.Drive1.drives().size(), 3U);
}

TEST_F(Browser, TheMouseLetGoOnTheFolderListGivesTheSongsTheFocus) {
  const EventCount focus(form.List1.focusRequested);
  form.Dir1.mouseUp.raise(MouseButton::Left);
  EXPECT_EQ(focus(), 1);
}

TEST_F(Browser, SettingTheDriveOfAPlaylistOnTheSameDriveChangesNothing) {
  songs.setPlayed(0, true);
  browser.setDriveOf("C:\\Lists\\x.m3u");
  EXPECT_TRUE(songs.played(0));
  browser.setDriveOf("D:\\Lists\\x.m3u");
  EXPECT_EQ(names(), Names{"d.wav"});
}

TEST_F(Browser, OneSystemsSeparatorServesAsWellAsTheOthers) {
  platform::simulated::SimulatedMachine other('/');
  other.files.addFile("/music/ab\\c.mp3");
  forms::MainForm f;
  SongList list(f.List1, f.Text1, f.Text2);
  FolderBrowser rooted({f.form, f.Drive1, f.Dir1, f.File1, f.Command5, f.Label9}, list, other.files,
                       [](const std::string& fallback) { return fallback; }, {});
  rooted.setFolder("/music//");
  EXPECT_EQ(list.pathOf(f.List1.item(0)), "/music/ab\\c.mp3");
  rooted.setFolder("/");
  EXPECT_EQ(f.Text2.text(), "/");
}

// --- Refresh ---

TEST_F(Browser, RefreshReadsTheFolderAgainAndKeepsThePosition) {
  form.List1.setListIndex(1);
  songs.setPlayed(0, true);
  songs.listExhausted = true;
  machine.files.addFile("C:\\Music\\d.mp3");
  machine.files.addFile("C:\\Music\\Rock\\r.mp3");
  form.Command5.userClick();
  EXPECT_EQ(form.List1.count(), 4);
  EXPECT_EQ(form.Dir1.folders(), (Names{"Jazz", "Rock"}));
  EXPECT_EQ(form.List1.listIndex(), 1);
  EXPECT_TRUE(form.List1.selected(1));
  EXPECT_EQ(form.Text1.text(), "b.mp3");
  EXPECT_EQ(form.Label9.caption(), "b");
  EXPECT_FALSE(songs.played(0));
  EXPECT_FALSE(songs.listExhausted);
}

TEST_F(Browser, RefreshGivesTheListTheFocusBeforeAndAfter) {
  const EventCount focus(form.List1.focusRequested);
  form.Command5.userClick();
  EXPECT_EQ(focus(), 2);
}

TEST_F(Browser, RefreshInPlaylistModeClearsTheTagsAndLeavesTheEntries) {
  importPlaylist({"X:\\one.mp3", "X:\\two.mp3"});
  form.List1.setListIndex(1);
  songs.setPlayed(0, true);
  songs.setRecent(1, true);
  browser.refresh();
  EXPECT_EQ(names(), (Names{"X:\\one.mp3", "X:\\two.mp3"}));
  EXPECT_EQ(songs.mode(), ListMode::Playlist);
  EXPECT_FALSE(songs.played(0));
  EXPECT_FALSE(songs.recent(1));
  EXPECT_EQ(form.Text1.text(), "X:\\two.mp3");
  EXPECT_EQ(form.Label9.caption(), "two");
  EXPECT_EQ(form.List1.listIndex(), 1);
  EXPECT_TRUE(form.List1.selected(1));
  EXPECT_EQ(machine.trace({Door::Files}), "");
}

TEST_F(Browser, RefreshWithNoCurrentPositionEmptiesTheSongsName) {
  form.List1.setListIndex(-1);
  form.Text1.setText("b.mp3");
  browser.refresh();
  EXPECT_EQ(form.Text1.text(), "");
  EXPECT_EQ(form.Label9.caption(), "");
  EXPECT_EQ(form.List1.listIndex(), -1);
}

TEST_F(Browser, RefreshOfAFolderThatLostItsLastSongsEndsQuietly) {
  form.List1.setListIndex(2);
  machine.files.remove("C:\\Music\\b.mp3");
  machine.files.remove("C:\\Music\\c.mp3");
  browser.refresh();
  EXPECT_EQ(names(), Names{"a.mp3"});
  EXPECT_EQ(form.List1.listIndex(), 0);
}

TEST_F(Browser, ThePlayingSongIsFoundAgainAfterARefreshAndAVisitElsewhere) {
  songs.setPlayingPosition(1);
  machine.files.addFile("C:\\Music\\aa.mp3");
  browser.refresh();
  EXPECT_EQ(songs.playingPosition(), 2);
  browser.setFolder("C:\\Music\\Jazz");
  EXPECT_EQ(songs.playingPosition(), -1);
  browser.setFolder("C:\\Music");
  EXPECT_EQ(songs.playingPosition(), 2);
}

}  // namespace
}  // namespace nerolith::library
