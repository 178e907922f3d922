#include "program_fixture.h"

namespace nerolith::app {
namespace {

using controls::Key;
using controls::MouseButton;

/// The player's own playlist operations and editor.
class EditorRun : public ProgramTest {
 protected:
  EditorRun() {
    storeEarlierRun("1");
    addSongs("C:\\Music", 4);
    machine.files.addFolder("C:\\Lists");
    program = std::make_unique<Program>(machine.doors(), StandIns{nullptr, &icon, &recording});
    program->start({});
    machine.advance(0ms);
  }
  forms::EditorForm& editor() { return program->editorForm(); }
  void press(char letter) {
    form().form.keyDown.raise({.key = controls::letterKey(letter), .alt = true});
    machine.advance(0ms);
  }
  void addTo(const std::string& path) {
    machine.dialogs.chooseFile(path);
    press('A');
  }
  void select(std::initializer_list<int> positions) {
    form().List1.deselectAll();
    for (const int i : positions) form().List1.setSelected(i, true);
  }
};

TEST_F(EditorRun, TakesThePlaceOfTheMainWindowUntilItIsClosed) {
  machine.bytes.put("C:\\Lists\\x.m3u", "1\r\n");
  select({1, 3});
  addTo("C:\\Lists\\x.m3u");
  EXPECT_FALSE(form().form.visible());
  EXPECT_TRUE(editor().form_4.visible());
  EXPECT_EQ(editor().form_4.caption(), "C:\\Lists\\x.m3u");
  EXPECT_EQ(machine.windows.focused(), &editor().List1);
  editor().List1.userClickRow(0, MouseButton::Left);
  editor().mnuAfter.userClick();
  editor().form_4.close();
  machine.advance(0ms);
  EXPECT_TRUE(form().form.visible());
  EXPECT_FALSE(editor().form_4.visible());
  EXPECT_EQ(machine.windows.focused(), &form().List1);
  EXPECT_EQ(machine.bytes.at("C:\\Lists\\x.m3u"), "1\r\nC:\\Music\\b.mp3\r\nC:\\Music\\d.mp3\r\n");
}

TEST_F(EditorRun, ANewFileIsWrittenAndTheMainWindowStaysWithoutAFlicker) {
  select({0, 2});
  bool everHidden = false;
  const auto watched = form().form.changed.subscribe([&] { everHidden |= !form().form.visible(); });
  addTo("C:\\Lists\\new.m3u");
  EXPECT_FALSE(everHidden);
  EXPECT_TRUE(form().form.visible());
  EXPECT_FALSE(editor().form_4.visible());
  EXPECT_EQ(machine.bytes.at("C:\\Lists\\new.m3u"), "C:\\Music\\a.mp3\r\nC:\\Music\\c.mp3\r\n");
}

TEST_F(EditorRun, QuickAddIntoANewFileWritesTheSongsTwice) {
  select({0});
  machine.dialogs.chooseFile("C:\\Lists\\new.m3u");
  press('Q');
  EXPECT_EQ(machine.bytes.at("C:\\Lists\\new.m3u"), "C:\\Music\\a.mp3\r\nC:\\Music\\a.mp3\r\n");
}

TEST_F(EditorRun, NextM3uAddsTheSameSongsToAFurtherFile) {
  machine.bytes.put("C:\\Lists\\x.m3u", "1\r\n");
  select({1});
  addTo("C:\\Lists\\x.m3u");
  machine.dialogs.chooseFile("C:\\Lists\\y.m3u");
  editor().Command1.userClick();
  machine.advance(0ms);
  EXPECT_EQ(machine.bytes.at("C:\\Lists\\y.m3u"), "C:\\Music\\b.mp3\r\n");
  EXPECT_EQ(machine.bytes.at("C:\\Lists\\x.m3u"), "1\r\n");
  EXPECT_TRUE(form().form.visible());
}

TEST_F(EditorRun, ThePlayerPlaysOnWhileTheEditorIsOpen) {
  form().Option2.userClick();
  form().Label8[0].userClick();
  ASSERT_EQ(playing(), "a.mp3");
  machine.bytes.put("C:\\Lists\\x.m3u", "1\r\n");
  select({2});
  addTo("C:\\Lists\\x.m3u");
  machine.advance(31s);
  EXPECT_EQ(playing(), "b.mp3");
  editor().List1.userClickRow(0, MouseButton::Left);
  editor().mnuBefore.userClick();
  EXPECT_EQ(machine.bytes.at("C:\\Lists\\x.m3u"), "C:\\Music\\c.mp3\r\n1\r\n");
}

TEST_F(EditorRun, TheEndOfTheProgramTakesTheEditorWithIt) {
  machine.bytes.put("C:\\Lists\\x.m3u", "1\r\n");
  addTo("C:\\Lists\\x.m3u");
  form().form.close();
  machine.advance(0ms);
  EXPECT_TRUE(machine.quitAsked());
  EXPECT_FALSE(editor().form_4.visible());
  EXPECT_FALSE(form().form.visible());
}

TEST_F(EditorRun, ADroppedPlaylistIsImportedWithoutAQuestion) {
  machine.bytes.put("C:\\Lists\\x.M3U", "C:\\Music\\c.mp3\r\n");
  EXPECT_TRUE(form().form.wouldTake({"C:\\Lists\\x.M3U"}));
  form().form.filesDropped.raise({"C:\\Lists\\x.M3U"});
  EXPECT_EQ(form().List1.items(), (std::vector<std::string>{"C:\\Music\\c.mp3"}));
  EXPECT_EQ(program->songs().mode(), library::ListMode::Playlist);
}

TEST_F(EditorRun, ADroppedFolderIsOpenedAlsoWhenItIsTheOneBehindThePlaylist) {
  machine.files.addFolder("C:\\Winter");
  addSongs("C:\\Winter", 2);
  EXPECT_TRUE(form().form.wouldTake({"C:\\Winter\\"}));
  form().form.filesDropped.raise({"C:\\Winter\\"});
  EXPECT_EQ(form().List1.count(), 2);
  EXPECT_EQ(form().Text2.text(), "C:\\Winter\\");
  machine.bytes.put("C:\\Lists\\x.m3u", "C:\\Music\\c.mp3\r\n");
  form().form.filesDropped.raise({"C:\\Lists\\x.m3u"});
  form().form.filesDropped.raise({"C:\\Winter"});
  EXPECT_EQ(form().List1.items(), (std::vector<std::string>{"a.mp3", "b.mp3"}));
  EXPECT_EQ(program->songs().mode(), library::ListMode::Folder);
}

TEST_F(EditorRun, ADroppedSongIsPlayedInTheModeThatIsSetAndItsFolderRemembered) {
  addSongs("C:\\Winter", 2);
  form().Option2.setValue(true);
  EXPECT_TRUE(form().form.wouldTake({"C:\\Winter\\b.mp3"}));
  form().form.filesDropped.raise({"C:\\Winter\\b.mp3"});
  EXPECT_EQ(playing(), "b.mp3");
  EXPECT_TRUE(form().Option2.value());
  form().form.close();
  EXPECT_EQ(*machine.settings.stored("Velmarion", "Path", "path"), "C:\\Winter");
}

TEST_F(EditorRun, EverythingElseIsRefused) {
  machine.bytes.put("C:\\Lists\\x.m3u", "");
  machine.bytes.put("C:\\Music\\a.txt", "");
  const std::vector<std::vector<std::string>> refused = {{},
                                                         {"C:\\Music\\a.txt"},
                                                         {"C:\\Music\\gone.mp3"},
                                                         {"C:\\Music\\a.mp3", "C:\\Music\\b.mp3"},
                                                         {"C:\\Lists\\gone.m3u"},
                                                         {"C:\\Lists\\x.m3u", "C:\\Music"},
                                                         {"C:\\Nowhere"}};
  for (const auto& paths : refused) {
    EXPECT_FALSE(form().form.wouldTake(paths));
    form().form.filesDropped.raise(paths);
  }
  EXPECT_EQ(form().List1.count(), 4);
}

}  // namespace
}  // namespace nerolith::app
