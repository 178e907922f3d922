#include "playlist_window.h"

namespace nerolith::playlist {
namespace {

using library::ListMode;
using Calls = std::vector<std::string>;

struct PlaylistFilesTest : PlaylistWindow {
  void add(const std::string& path) {
    machine.dialogs.chooseFile(path);
    playlists.addSelection();
  }
};
using Add = PlaylistFilesTest;
using QuickAdd = PlaylistFilesTest;
using Clear = PlaylistFilesTest;
using Update = PlaylistFilesTest;

TEST_F(Add, HandsTheFileToTheEditorAndHidesTheMainWindow) {
  put("C:\\Lists\\best.m3u", "C:\\x.mp3\r\n");
  select({1});
  add("C:\\Lists\\best.m3u");
  EXPECT_EQ(dialogs(), "dialogs.save Add selected files to playlist (*.m3u)");
  EXPECT_EQ(machine.dialogs.lastFileQuestion().filter, "*.m3u|*.m3u");
  EXPECT_EQ(editor.calls, (Calls{"playlistfile C:\\Lists\\best.m3u", "show"}));
  EXPECT_FALSE(form.form.visible());
  EXPECT_EQ(playlists.lastOpened(), "C:\\Lists\\best.m3u");
  EXPECT_EQ(bytesAt("C:\\Lists\\best.m3u"), "C:\\x.mp3\r\n");
}

TEST_F(Add, AFileThatIsThereIsChosenWithoutAWarning) {
  machine.dialogs.cancelFile();
  playlists.addSelection();
  EXPECT_FALSE(machine.dialogs.lastFileQuestion().askBeforeReplacing);
  EXPECT_EQ(machine.dialogs.lastFileQuestion().ending, "m3u");
}

TEST_F(Add, AFileThatIsNotThereIsMade) {
  machine.files.addFolder("C:\\Lists");
  select({0, 2});
  add("C:\\Lists\\new.m3u");
  EXPECT_EQ(bytesAt("C:\\Lists\\new.m3u"), "C:\\Music\\a.mp3\r\nC:\\Music\\c.mp3\r\n");
}

TEST_F(Add, InAFolderThePrefixStays) {
  put("C:\\l.m3u", "x\r\n");
  add("C:\\l.m3u");
  EXPECT_EQ(form.Text2.text(), "C:\\Music\\");
}

TEST_F(Add, InAPlaylistThePrefixIsEmptiedEvenIfTheUserCancels) {
  put("C:\\l.m3u", "C:\\Music\\a.mp3\r\n");
  import("C:\\l.m3u");
  form.Text2.setText("C:\\Music\\");
  machine.dialogs.cancelFile();
  playlists.addSelection();
  EXPECT_EQ(form.Text2.text(), "");
}

TEST_F(Add, CountsTheList) {
  form.List1.addItem("late.mp3");
  machine.dialogs.cancelFile();
  playlists.addSelection();
  EXPECT_EQ(songs.listCount(), 4);
}

TEST_F(Add, ACancelledQuestionDoesNothing) {
  machine.dialogs.cancelFile();
  playlists.addSelection();
  EXPECT_TRUE(editor.calls.empty());
  EXPECT_TRUE(form.form.visible());
  EXPECT_EQ(playlists.lastOpened(), "");
}

TEST_F(Add, AFileThatCannotBeMadeEndsIt) {
  add("C:\\No such folder\\new.m3u");
  EXPECT_TRUE(editor.calls.empty());
  EXPECT_TRUE(form.form.visible());
  EXPECT_EQ(dialogs(), "dialogs.save Add selected files to playlist (*.m3u)");
}

TEST_F(Add, AFileThatTheEditorCannotLoadLeavesTheMainWindow) {
  put("C:\\l.m3u", "x\r\n");
  editor.broken = true;
  add("C:\\l.m3u");
  EXPECT_TRUE(form.form.visible());
}

TEST_F(Add, AnEditorThatCannotBeShownLeavesTheMainWindow) {
  put("C:\\l.m3u", "x\r\n");
  editor.invisible = true;
  add("C:\\l.m3u");
  EXPECT_TRUE(form.form.visible());
}

TEST_F(QuickAdd, AppendsTheSelectedSongsInListOrder) {
  put("C:\\l.m3u", "# kept\r\nC:\\x.mp3\r\n\r\n");
  add("C:\\l.m3u");
  machine.clearTrace();
  select({2, 0});
  playlists.quickAdd();
  EXPECT_EQ(bytesAt("C:\\l.m3u"),
            "# kept\r\nC:\\x.mp3\r\n\r\nC:\\Music\\a.mp3\r\nC:\\Music\\c.mp3\r\n");
  EXPECT_EQ(dialogs(), "");
  EXPECT_EQ(machine.trace({platform::simulated::Door::Files}), "bytes.append C:\\l.m3u");
}

TEST_F(QuickAdd, InPlaylistModeWritesTheEntriesAsTheyStand) {
  put("C:\\l.m3u", "D:\\d.wav\r\nrelative.mp3\r\n");
  import("C:\\l.m3u");
  select({1});
  playlists.quickAdd();
  EXPECT_EQ(bytesAt("C:\\l.m3u"), "D:\\d.wav\r\nrelative.mp3\r\nrelative.mp3\r\n");
}

TEST_F(QuickAdd, WithoutALastOpenedPlaylistANewFileGetsTheSongsTwice) {
  select({0, 1});
  machine.dialogs.chooseFile("C:\\new.m3u");
  playlists.quickAdd();
  const std::string once = "C:\\Music\\a.mp3\r\nC:\\Music\\b.mp3\r\n";
  EXPECT_EQ(bytesAt("C:\\new.m3u"), once + once);
  EXPECT_EQ(editor.calls, (Calls{"playlistfile C:\\new.m3u", "show"}));
}

TEST_F(QuickAdd, WithoutALastOpenedPlaylistACancelledQuestionEndsIt) {
  select({0});
  machine.dialogs.cancelFile();
  playlists.quickAdd();
  EXPECT_EQ(machine.trace({platform::simulated::Door::Files}), "");
}

TEST_F(QuickAdd, OnADrivesRootThereIsOneSeparator) {
  browser.setFolder("D:\\");
  put("D:\\l.m3u", "");
  add("D:\\l.m3u");
  put("D:\\l.m3u", "");
  select({0});
  playlists.quickAdd();
  EXPECT_EQ(bytesAt("D:\\l.m3u"), "D:\\d.wav\r\n");
}

TEST_F(QuickAdd, ALastLineWithoutAnEndIsEndedFirst) {
  put("C:\\l.m3u", "C:\\x.mp3");
  add("C:\\l.m3u");
  select({0});
  playlists.quickAdd();
  EXPECT_EQ(bytesAt("C:\\l.m3u"), "C:\\x.mp3\r\nC:\\Music\\a.mp3\r\n");
}

TEST_F(QuickAdd, NothingSelectedAddsNothing) {
  put("C:\\l.m3u", "C:\\x.mp3");
  add("C:\\l.m3u");
  playlists.quickAdd();
  EXPECT_EQ(bytesAt("C:\\l.m3u"), "C:\\x.mp3");
}

TEST_F(QuickAdd, AFileThatIsGoneIsNotMadeAgain) {
  put("C:\\l.m3u", "C:\\x.mp3\r\n");
  add("C:\\l.m3u");
  machine.files.remove("C:\\l.m3u");
  select({0});
  playlists.quickAdd();
  EXPECT_EQ(machine.files.find("C:\\l.m3u"), nullptr);
}

TEST_F(Clear, LeavesAFileOfZeroBytesWithoutAsking) {
  put("C:\\l.m3u", "C:\\x.mp3\r\n");
  machine.windows.focus(form.Drive1);
  machine.dialogs.chooseFile("C:\\l.m3u");
  playlists.clearPlaylist();
  EXPECT_EQ(bytesAt("C:\\l.m3u"), "");
  EXPECT_EQ(dialogs(), "dialogs.save Clear playlistfile");
  EXPECT_FALSE(machine.dialogs.lastFileQuestion().askBeforeReplacing);
  EXPECT_EQ(machine.windows.focused(), &form.List1);
}

TEST_F(Clear, MakesAFileThatIsNotThere) {
  machine.dialogs.chooseFile("C:\\new.m3u");
  playlists.clearPlaylist();
  EXPECT_EQ(bytesAt("C:\\new.m3u"), "");
}

TEST_F(Clear, ACancelledQuestionClearsNothing) {
  put("C:\\l.m3u", "C:\\x.mp3\r\n");
  import("C:\\l.m3u");
  machine.dialogs.cancelFile();
  playlists.clearPlaylist();
  EXPECT_EQ(bytesAt("C:\\l.m3u"), "C:\\x.mp3\r\n");
}

TEST_F(Clear, IsNoOpeningOfThePlaylist) {
  put("C:\\l.m3u", "C:\\x.mp3\r\n");
  import("C:\\l.m3u");
  machine.dialogs.chooseFile("C:\\other.m3u");
  playlists.clearPlaylist();
  EXPECT_EQ(playlists.lastOpened(), "C:\\l.m3u");
  EXPECT_EQ(playlists.remembered(), "C:\\l.m3u");
}

TEST_F(Update, InFolderModeSaysThatThereIsNone) {
  put("C:\\l.m3u", "C:\\x.mp3\r\n");
  add("C:\\l.m3u");
  machine.dialogs.answer(platform::Answer::Ok);
  playlists.updatePlaylist();
  EXPECT_EQ(machine.dialogs.lastMessage().text, "No playlistfile opend");
  EXPECT_EQ(machine.dialogs.lastMessage().icon, platform::MessageIcon::None);
  EXPECT_EQ(machine.dialogs.lastMessage().buttons, platform::MessageButtons::Ok);
  EXPECT_EQ(bytesAt("C:\\l.m3u"), "C:\\x.mp3\r\n");
}

TEST_F(Update, WritesEveryEntrySelectedOrNot) {
  put("C:\\l.m3u", "#EXTM3U\r\nC:\\1.mp3\r\n\r\nC:\\2.mp3\r\nC:\\3.mp3");
  import("C:\\l.m3u");
  select({1});
  form.List1.removeItem(0);
  playlists.updatePlaylist();
  EXPECT_EQ(bytesAt("C:\\l.m3u"), "C:\\2.mp3\r\nC:\\3.mp3\r\n");
  EXPECT_EQ(mode(), ListMode::Playlist);
}

TEST_F(Update, AfterAnAddItWritesTheFileAddedTo) {
  put("C:\\l.m3u", "C:\\1.mp3\r\n");
  put("C:\\other.m3u", "C:\\9.mp3\r\n");
  import("C:\\l.m3u");
  add("C:\\other.m3u");
  playlists.updatePlaylist();
  EXPECT_EQ(bytesAt("C:\\l.m3u"), "C:\\1.mp3\r\n");
  EXPECT_EQ(bytesAt("C:\\other.m3u"), "C:\\1.mp3\r\n");
}

TEST_F(Update, AnEmptiedListLeavesAnEmptyFile) {
  put("C:\\l.m3u", "C:\\1.mp3\r\n");
  import("C:\\l.m3u");
  form.List1.clear();
  playlists.updatePlaylist();
  EXPECT_EQ(bytesAt("C:\\l.m3u"), "");
}

TEST_F(Update, NamesBeyondTheCodePageComeBack) {
  put("C:\\l.m3u", "C:\\Caf\xE9.mp3\r\nC:\\\xE2\x98\x83.mp3\r\nC:\\\x81\x82.mp3\r\n");
  import("C:\\l.m3u");
  const Names before = names();
  playlists.updatePlaylist();
  import("C:\\l.m3u");
  EXPECT_EQ(names(), before);
  EXPECT_EQ(before[0], "C:\\Caf\xC3\xA9.mp3");
}

/// Each of the five, over a playlist that is there.
TEST_F(PlaylistFilesTest, WhicheverCallFailsNoPlaylistIsHalfWritten) {
  const std::string old = "C:\\1.mp3\r\nC:\\2.mp3\r\n";
  const std::vector<std::string> whole{old, "C:\\2.mp3\r\n", old + "C:\\2.mp3\r\n", ""};
  for (int operation = 0; operation < 5; ++operation) {
    bool struck = true;
    for (std::uint64_t n = 1; struck; ++n) {
      ASSERT_LT(n, 100u);
      put("C:\\l.m3u", old);
      playlists.openPlaylist("C:\\l.m3u");
      form.List1.removeItem(0);
      select({0});
      if (operation == 2 || operation == 3 || operation == 4)
        machine.dialogs.chooseFile("C:\\l.m3u");
      const std::uint64_t faults = machine.doorway.faults();
      machine.failDoorCall(n);
      if (operation == 0) playlists.updatePlaylist();
      if (operation == 1) playlists.quickAdd();
      if (operation == 2) playlists.clearPlaylist();
      if (operation == 3) playlists.addSelection();
      if (operation == 4) playlists.importPlaylist();
      machine.failDoorCall(0);
      struck = machine.doorway.faults() != faults;
      EXPECT_NE(std::find(whole.begin(), whole.end(), bytesAt("C:\\l.m3u")), whole.end());
    }
  }
}

}  // namespace
}  // namespace nerolith::playlist
