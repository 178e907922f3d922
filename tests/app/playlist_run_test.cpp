// The playlist operations in the whole player: keys, menu, start, command line, close.
#include "program_fixture.h"

namespace nerolith::app {
namespace {

using controls::letterKey;
using library::ListMode;

class PlaylistRun : public ProgramTest {
 protected:
  PlaylistRun() {
    storeEarlierRun("1");
    addSongs("C:\\Music", 3);
    addSongs("D:\\Far", 2);
    machine.bytes.put("C:\\Lists\\best.m3u", "C:\\Music\\c.mp3\r\nD:\\Far\\a.mp3\r\n");
  }
  void start(const std::string& commandLine = {}) {
    program = std::make_unique<Program>(machine.doors(), StandIns{nullptr, &icon, &recording});
    program->start(commandLine);
    machine.advance(0ms);
  }
  void remember(const std::string& playlist) {
    machine.settings.set("Velmarion", "Path", "plname", playlist);
  }
  std::optional<std::string> stored(const std::string& key) {
    return machine.settings.stored("Velmarion", "Path", key);
  }
  void press(char letter) { form().form.keyDown.raise({.key = letterKey(letter), .alt = true}); }
  const controls::MenuItem& item(std::size_t position) {
    form().List1.mouseDown.raise(controls::MouseButton::Right);
    return *machine.windows.lastMenu()->items()[1]->items()[position];
  }
  void choose(std::size_t position) { const_cast<controls::MenuItem&>(item(position)).userClick(); }
  const std::vector<std::string>& names() { return form().List1.items(); }
  std::string dialogs() { return machine.trace({Door::Dialogs}); }
};

TEST_F(PlaylistRun, TheMenuHasTheFiveOperationsAsWritten) {
  start();
  std::vector<std::string> captions;
  for (std::size_t i = 0; i < 5; ++i) captions.push_back(item(i).caption());
  EXPECT_EQ(captions,
            (std::vector<std::string>{"Add file(s) to last opened playlist  (alt-Q)",
                                      "Import Playlistfiles                         (alt-I)",
                                      "Add selected file(s) to playlist       (alt-A)",
                                      "Clear playlist file                            (alt-C)",
                                      "Update Playlistfile                         (alt-U)"}));
  for (std::size_t i = 0; i < 5; ++i) EXPECT_TRUE(item(i).visible());
}

TEST_F(PlaylistRun, MenuAndKeysDoTheSame) {
  start();
  for (int i = 0; i < 4; ++i) machine.dialogs.cancelFile();
  machine.dialogs.answer(platform::Answer::Ok);
  choose(0);
  choose(1);
  choose(2);
  choose(3);
  choose(4);
  const std::string byMenu = dialogs();
  machine.clearTrace();
  for (int i = 0; i < 4; ++i) machine.dialogs.cancelFile();
  machine.dialogs.answer(platform::Answer::Ok);
  for (const char letter : {'Q', 'I', 'A', 'C', 'U'}) press(letter);
  EXPECT_EQ(dialogs(), byMenu);
  EXPECT_EQ(byMenu,
            "dialogs.save Add selected files to playlist (*.m3u) | "
            "dialogs.open Import playlistfile (*.m3u) | "
            "dialogs.save Add selected files to playlist (*.m3u) | "
            "dialogs.save Clear playlistfile | dialogs.message No playlistfile opend");
}

TEST_F(PlaylistRun, AnEntryOfAPlaylistIsPlayedByItsPath) {
  start();
  machine.dialogs.chooseFile("C:\\Lists\\best.m3u");
  press('I');
  form().List1.userActivate(1);
  EXPECT_EQ(playing(), "D:\\Far\\a.mp3");
  EXPECT_EQ(form().Label9.caption(), "a");
  EXPECT_EQ(machine.decks.audibleGraphs(), 1);
}

TEST_F(PlaylistRun, TheLastPlaylistComesBackAtTheStart) {
  remember("C:\\Lists\\best.m3u");
  start();
  EXPECT_EQ(names(), (std::vector<std::string>{"C:\\Music\\c.mp3", "D:\\Far\\a.mp3"}));
  EXPECT_EQ(program->songs().mode(), ListMode::Playlist);
  EXPECT_EQ(dialogs(), "");
}

TEST_F(PlaylistRun, AtTheStartAutoNextBeginsWithItsFirstSong) {
  storeDisplay("setting", "2");
  remember("C:\\Lists\\best.m3u");
  start();
  EXPECT_EQ(playing(), "C:\\Music\\c.mp3");
}

TEST_F(PlaylistRun, APlaylistThatIsGoneIsForgotten) {
  remember("C:\\Lists\\gone.m3u");
  start();
  EXPECT_EQ(program->songs().mode(), ListMode::Folder);
  form().form.close();
  EXPECT_EQ(stored("plname"), "");
}

TEST_F(PlaylistRun, TheImportedPlaylistIsRememberedAtTheClose) {
  start();
  machine.dialogs.chooseFile("C:\\Lists\\best.m3u");
  press('I');
  form().form.close();
  EXPECT_EQ(stored("plname"), "C:\\Lists\\best.m3u");
}

TEST_F(PlaylistRun, APlaylistAddedToIsNotRemembered) {
  machine.bytes.put("C:\\Lists\\other.m3u", "x\r\n");
  start();
  machine.dialogs.chooseFile("C:\\Lists\\other.m3u");
  press('A');
  form().form.close();
  EXPECT_EQ(stored("plname"), "");
}

TEST_F(PlaylistRun, TheFirstImportAfterTheStartAsksNothing) {
  remember("C:\\Lists\\best.m3u");
  start();
  form().Dir1.userClick();  // back to the folder
  ASSERT_EQ(program->songs().mode(), ListMode::Folder);
  press('I');
  EXPECT_EQ(dialogs(), "");
  EXPECT_EQ(program->songs().mode(), ListMode::Playlist);
  machine.dialogs.cancelFile();
  press('I');
  EXPECT_EQ(dialogs(), "dialogs.open Import playlistfile (*.m3u)");
}

TEST_F(PlaylistRun, TheDriveListLeadsBackToTheFolderBefore) {
  machine.files.addDrive("E:\\", "E:");
  machine.bytes.put("E:\\far.m3u", "C:\\Music\\b.mp3\r\n");
  start();
  machine.dialogs.chooseFile("E:\\far.m3u");
  press('I');
  EXPECT_EQ(form().Drive1.drive(), "E:\\");
  machine.windows.focus(form().Drive1);
  EXPECT_EQ(program->songs().mode(), ListMode::Folder);
  EXPECT_EQ(form().Text2.text(), "C:\\Music\\");
  EXPECT_EQ(form().Drive1.drive(), "C:\\");
}

TEST_F(PlaylistRun, RefreshClearsTheTagsAndLeavesTheEntries) {
  remember("C:\\Lists\\best.m3u");
  start();
  form().List1.userActivate(0);
  form().Command5.userClick();
  EXPECT_FALSE(program->songs().played(0));
  EXPECT_EQ(names().size(), 2u);
}

TEST_F(PlaylistRun, TheCommandLineImportsAPlaylist) {
  start("C:\\Lists\\best.m3u,2");
  EXPECT_EQ(names().size(), 2u);
  EXPECT_TRUE(form().Option2.value());
  EXPECT_EQ(playing(), "C:\\Music\\c.mp3");
}

TEST_F(PlaylistRun, WithoutAModeTheCommandLineImportsAndWaits) {
  start("C:\\Lists\\BEST.M3U");
  EXPECT_EQ(names().size(), 2u);
  EXPECT_TRUE(form().Option1.value());
  EXPECT_EQ(machine.decks.audibleGraphs(), 0);
}

TEST_F(PlaylistRun, ARelativePlaylistCountsFromWhereTheProgramWasStarted) {
  machine.bytes.put("C:\\Music\\near.m3u", "D:\\Far\\b.mp3\r\n");
  start("near.m3u,3");
  EXPECT_EQ(names(), std::vector<std::string>{"D:\\Far\\b.mp3"});
  EXPECT_EQ(playing(), "D:\\Far\\b.mp3");
}

TEST_F(PlaylistRun, AMissingPlaylistOnTheCommandLineLeavesTheFolder) {
  start("C:\\Lists\\gone.m3u,2");
  EXPECT_EQ(program->songs().mode(), ListMode::Folder);
  EXPECT_EQ(playing(), "a.mp3");
}

TEST_F(PlaylistRun, ANameThatOnlyHoldsTheEndingIsNoPlaylist) {
  machine.files.addFile("C:\\Music\\best.m3u.mp3", {.duration = 30});
  start("C:\\Music\\best.m3u.mp3");
  EXPECT_EQ(playing(), "best.m3u.mp3");
  EXPECT_EQ(program->songs().mode(), ListMode::Folder);
}

TEST_F(PlaylistRun, EntriesThatCannotBePlayedArePassedOver) {
  machine.bytes.put("C:\\Lists\\odd.m3u",
                    "C:\\Lists\\odd.m3u\r\nC:\\Music\r\nZ:\\gone.mp3\r\nrelative.mp3\r\n"
                    "C:\\Music\\b.mp3\r\n");
  start("C:\\Lists\\odd.m3u,2");
  machine.advance(1s);
  EXPECT_EQ(playing(), "C:\\Music\\b.mp3");
  EXPECT_EQ(machine.decks.audibleGraphs(), 1);
}

}  // namespace
}  // namespace nerolith::app
