#include "playlist_window.h"

namespace nerolith::playlist {
namespace {

using library::ListMode;
using platform::simulated::Door;

struct Import : PlaylistWindow {
  void SetUp() override {
    PlaylistWindow::SetUp();
    put("C:\\Lists\\best.m3u", "C:\\Music\\c.mp3\r\nD:\\d.wav\r\n");
    put("C:\\Lists\\other.m3u", "C:\\Music\\a.mp3\r\n");
    put("D:\\far.m3u", "D:\\d.wav\r\n");
  }
};

TEST_F(Import, TheFirstOneAsksAndFillsTheList) {
  import("C:\\Lists\\best.m3u");
  EXPECT_EQ(names(), (Names{"C:\\Music\\c.mp3", "D:\\d.wav"}));
  EXPECT_EQ(mode(), ListMode::Playlist);
  EXPECT_EQ(dialogs(), "dialogs.open Import playlistfile (*.m3u)");
  EXPECT_EQ(machine.dialogs.lastFileQuestion().filter, "*.m3u|*.m3u");
  EXPECT_EQ(playlists.remembered(), "C:\\Lists\\best.m3u");
  EXPECT_EQ(playlists.lastOpened(), "C:\\Lists\\best.m3u");
}

TEST_F(Import, YieldsOnlyThePathLinesInTheirOrder) {
  put("C:\\x.m3u",
      "\xEF\xBB\xBF#EXTM3U\r\n#EXTINF:9,A\r\n  C:\\b #2.mp3  \r\n\r\n#EXTINF:8,B\r\nC:\\a.mp3");
  import("C:\\x.m3u");
  EXPECT_EQ(names(), (Names{"C:\\b #2.mp3", "C:\\a.mp3"}));
}

TEST_F(Import, LeavesNoEntryCurrentAndNoneSelected) {
  form.List1.setListIndex(1);
  select({0, 1, 2});
  import("C:\\Lists\\best.m3u");
  EXPECT_EQ(form.List1.listIndex(), -1);
  EXPECT_EQ(form.List1.selectedCount(), 0);
  EXPECT_EQ(songs.listCount(), 2);
}

TEST_F(Import, ClearsPlayedTagsAndRecentMarks) {
  songs.setPlayed(0, true);
  songs.setPlayed(9000, true);
  songs.setRecent(1, true);
  songs.anyRecent = true;
  import("C:\\Lists\\best.m3u");
  EXPECT_FALSE(songs.played(0));
  EXPECT_FALSE(songs.played(9000));
  EXPECT_FALSE(songs.recent(1));
  EXPECT_FALSE(songs.anyRecent);
}

TEST_F(Import, GivesTheSongListTheFocus) {
  machine.windows.focus(form.Drive1);
  import("C:\\Lists\\best.m3u");
  EXPECT_EQ(machine.windows.focused(), &form.List1);
}

TEST_F(Import, AFolderIsRememberedToComeBackTo) {
  import("C:\\Lists\\best.m3u");
  EXPECT_EQ(machine.settings.stored("Velmarion", "Path", "path"), "C:\\Music");
}

TEST_F(Import, InPlaylistModeTheRememberedFolderStays) {
  import("C:\\Lists\\best.m3u");
  machine.settings.set("Velmarion", "Path", "path", "C:\\Elsewhere");
  import("C:\\Lists\\other.m3u");
  EXPECT_EQ(machine.settings.stored("Velmarion", "Path", "path"), "C:\\Elsewhere");
}

TEST_F(Import, ARememberedPlaylistComesBackFromAFolderWithoutAQuestion) {
  import("C:\\Lists\\best.m3u");
  browser.setFolder("C:\\Music\\Jazz");
  machine.clearTrace();
  playlists.importPlaylist();
  EXPECT_EQ(dialogs(), "");
  EXPECT_EQ(names().size(), 2u);
}

TEST_F(Import, InPlaylistModeTheUserIsAskedAgain) {
  import("C:\\Lists\\best.m3u");
  import("C:\\Lists\\other.m3u");
  EXPECT_EQ(names(), Names{"C:\\Music\\a.mp3"});
  EXPECT_EQ(machine.dialogs.lastFileQuestion().fileName, "C:\\Lists\\best.m3u");
  EXPECT_EQ(playlists.remembered(), "C:\\Lists\\other.m3u");
  EXPECT_EQ(playlists.lastOpened(), "C:\\Lists\\other.m3u");
}

TEST_F(Import, ARememberedPlaylistThatIsGoneIsForgottenAndTheUserAsked) {
  import("C:\\Lists\\best.m3u");
  browser.setFolder("C:\\Music\\Jazz");
  machine.files.remove("C:\\Lists\\best.m3u");
  machine.dialogs.cancelFile();
  playlists.importPlaylist();
  EXPECT_EQ(playlists.remembered(), "");
  EXPECT_EQ(mode(), ListMode::Folder);
}

TEST_F(Import, ACancelledQuestionChangesNothing) {
  import("C:\\Lists\\best.m3u");
  machine.dialogs.cancelFile();
  playlists.importPlaylist();
  EXPECT_EQ(names().size(), 2u);
  EXPECT_EQ(playlists.remembered(), "C:\\Lists\\best.m3u");
  EXPECT_EQ(mode(), ListMode::Playlist);
}

TEST_F(Import, SwitchesTheDriveToThePlaylists) {
  import("D:\\far.m3u");
  EXPECT_EQ(form.Drive1.drive(), "D:\\");
  EXPECT_EQ(browser.folder(), "D:\\");
  EXPECT_EQ(names(), Names{"D:\\d.wav"});
  EXPECT_EQ(mode(), ListMode::Playlist);
  EXPECT_EQ(machine.settings.stored("Velmarion", "Path", "path"), "C:\\Music");
}

TEST_F(Import, OnTheSameDriveTheBrowserStaysWhereItIs) {
  import("C:\\Lists\\best.m3u");
  EXPECT_EQ(browser.folder(), "C:\\Music");
  EXPECT_EQ(machine.trace({Door::Files}), "bytes.read C:\\Lists\\best.m3u");
}

TEST_F(Import, AFileThatCannotBeReadLeavesTheList) {
  import("C:\\Lists\\missing.m3u");
  EXPECT_EQ(names(), (Names{"a.mp3", "b.mp3", "c.mp3"}));
  EXPECT_EQ(mode(), ListMode::Folder);
  EXPECT_EQ(dialogs(), "dialogs.open Import playlistfile (*.m3u)");
  EXPECT_EQ(playlists.lastOpened(), "");
}

TEST_F(Import, ARememberedPlaylistThatCannotBeReadDoesNotBarTheWayToOthers) {
  import("C:\\Lists\\best.m3u");
  browser.setFolder("C:\\Music\\Jazz");
  machine.doorway.recordReadings(true);
  machine.failDoorCall(3);  // the folder is stored and its drive found: the reading fails
  playlists.importPlaylist();
  ASSERT_NE(machine.trace().find("bytes.read C:\\Lists\\best.m3u failed"), std::string::npos);
  EXPECT_EQ(mode(), ListMode::Folder);
  import("C:\\Lists\\other.m3u");
  EXPECT_EQ(names(), Names{"C:\\Music\\a.mp3"});
}

TEST_F(Import, AnEmptyFileYieldsAnEmptyList) {
  put("C:\\Lists\\empty.m3u", "");
  import("C:\\Lists\\empty.m3u");
  EXPECT_TRUE(names().empty());
  EXPECT_EQ(mode(), ListMode::Playlist);
}

TEST_F(Import, APlaylistThatListsItselfIsTakenAsItStands) {
  put("C:\\Lists\\loop.m3u", "C:\\Lists\\loop.m3u\r\nC:\\Music\r\nZ:\\gone.mp3\r\n");
  import("C:\\Lists\\loop.m3u");
  EXPECT_EQ(names(), (Names{"C:\\Lists\\loop.m3u", "C:\\Music", "Z:\\gone.mp3"}));
}

TEST_F(Import, TheSongThatPlaysIsFoundAgainByItsPath) {
  songs.setPlayingPosition(2);
  import("C:\\Lists\\best.m3u");
  EXPECT_EQ(songs.playingPosition(), 0);
  import("C:\\Lists\\other.m3u");
  EXPECT_EQ(songs.playingPosition(), -1);
}

TEST_F(Import, AnEntryIsAFullPathUntilAFolderIsShownAgain) {
  import("C:\\Lists\\best.m3u");
  EXPECT_EQ(songs.pathOf(names()[0]), "C:\\Music\\c.mp3");
  browser.setFolder("C:\\Music");
  EXPECT_EQ(mode(), ListMode::Folder);
  EXPECT_EQ(songs.pathOf(names()[0]), "C:\\Music\\a.mp3");
}

TEST_F(Import, WhicheverCallFailsTheListIsTheOldOneOrTheNewOne) {
  for (std::uint64_t n = 1; n < 100; ++n) {
    browser.setFolder("C:\\Music");
    const std::uint64_t faults = machine.doorway.faults();
    machine.failDoorCall(n);
    playlists.openPlaylist("D:\\far.m3u");
    machine.failDoorCall(0);
    if (machine.doorway.faults() == faults) return;  // every call has failed once
    const bool old = mode() == ListMode::Folder && !names().empty() && names()[0] != "D:\\d.wav";
    const bool fresh = mode() == ListMode::Playlist && names() == Names{"D:\\d.wav"};
    EXPECT_TRUE(old || fresh) << n;
  }
  FAIL() << "the import asks for more than was foreseen";
}

}  // namespace
}  // namespace nerolith::playlist
