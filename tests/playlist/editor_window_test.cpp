#include "playlist/editor_window.h"

#include <gtest/gtest.h>

#include "base/failure.h"
#include "platform/simulated/simulated_machine.h"
#include "playlist/playlist_text.h"

namespace nerolith::playlist {
namespace {

using controls::Key;
using controls::MouseButton;
using platform::simulated::Door;
using platform::simulated::SimulatedMachine;

const std::string kFile = "C:\\Lists\\evening.m3u";

/// A song list with a.mp3 to d.mp3 of C:\Music, of which b and d are selected.
class EditorWindowTest : public testing::Test {
 protected:
  void SetUp() override {
    machine.files.addFolder("C:\\Lists");
    list1.setItems({"a.mp3", "b.mp3", "c.mp3", "d.mp3"});
    list1.setSelected(1, true);
    list1.setSelected(3, true);
    machine.windows.add(form.form_4);
  }
  void TearDown() override { machine.windows.remove(form.form_4); }

  void put(const std::string& bytes) { machine.bytes.put(kFile, bytes); }
  const std::string& written() const { return machine.bytes.at(kFile); }
  /// As the add operation does.
  void open(const std::string& bytes) {
    put(bytes);
    editor.playlistfile(kFile);
    mainShown = false;
    editor.show();
    machine.advance(std::chrono::milliseconds(0));
    machine.clearTrace();
  }
  void choose(int row, controls::MenuItem& item) {
    form.List1.userClickRow(row, MouseButton::Left);
    item.userClick();
  }
  void press(Key key) { form.form_4.keyDown.raise({.key = key}); }
  std::string windows() { return machine.trace({Door::Windows}); }

  SimulatedMachine machine;
  controls::ListBox list1;
  controls::TextBox text1, text2;
  library::SongList songs{list1, text1, text2};
  forms::EditorForm form;
  std::string folder = "C:\\Music";
  bool mainShown = true;
  std::function<void()> add = [] {};
  EditorWindow editor{{form, songs, machine.bytes, machine.encoding, '\\'},
                      {[this] { return folder; }, [this] { mainShown = true; }, [this] { add(); }}};
};

TEST_F(EditorWindowTest, ShowsTheLinesOfTheFileAndItsPathAsCaption) {
  open("  C:\\Music\\one.mp3 \r\n\r\n#EXTM3U\r\nC:\\Music\\two #1.mp3");
  EXPECT_EQ(form.List1.items(),
            (std::vector<std::string>{"C:\\Music\\one.mp3", "", "C:\\Music\\two #1.mp3"}));
  EXPECT_TRUE(form.form_4.visible());
  EXPECT_EQ(form.form_4.caption(), kFile);
  EXPECT_EQ(machine.windows.focused(), &form.List1);
  EXPECT_EQ(form.Label1.caption(), "Click on a file to add the file(s)");
  EXPECT_EQ(form.Command1.caption(), "Next M3U");
  EXPECT_FALSE(mainShown);
}

TEST_F(EditorWindowTest, IsCalledByItsPurposeUntilItIsActivated) {
  EXPECT_EQ(form.form_4.caption(), "Add files to playlist");
}

TEST_F(EditorWindowTest, AnEmptyFileGetsTheSongsAtOnceAndTheEditorNeverStaysOpen) {
  open("");
  EXPECT_EQ(written(), "C:\\Music\\b.mp3\r\nC:\\Music\\d.mp3\r\n");
  EXPECT_FALSE(form.form_4.visible());
  EXPECT_TRUE(mainShown);
}

TEST_F(EditorWindowTest, AFileOfCommentsCountsAsEmpty) {
  open("#EXTM3U\r\n#EXTINF:1,x\r\n");
  EXPECT_EQ(written(), "C:\\Music\\b.mp3\r\nC:\\Music\\d.mp3\r\n");
  EXPECT_FALSE(form.form_4.visible());
}

TEST_F(EditorWindowTest, AFileOfBlankLinesDoesNot) {
  open("\r\n \r\n");
  EXPECT_EQ(written(), "\r\n \r\n");
  EXPECT_TRUE(form.form_4.visible());
  EXPECT_EQ(form.List1.count(), 2);
}

TEST_F(EditorWindowTest, MarkedAsEmptyItClosesWhenItIsActivated) {
  put("");
  editor.playlistfile(kFile);
  mainShown = false;
  form.form_4.setVisible(true);
  machine.advance(std::chrono::milliseconds(0));
  EXPECT_FALSE(form.form_4.visible());
  EXPECT_TRUE(mainShown);
}

TEST_F(EditorWindowTest, BeforeAfterInsteadAndOut) {
  open("1\r\n2\r\n3\r\n");
  choose(1, form.mnuBefore);
  EXPECT_EQ(written(), "1\r\nC:\\Music\\b.mp3\r\nC:\\Music\\d.mp3\r\n2\r\n3\r\n");
  choose(4, form.mnuAfter);
  EXPECT_TRUE(written().ends_with("2\r\n3\r\nC:\\Music\\b.mp3\r\nC:\\Music\\d.mp3\r\n"));
  choose(0, form.mnuRemove);
  EXPECT_TRUE(written().starts_with("C:\\Music\\b.mp3\r\nC:\\Music\\d.mp3\r\n2\r\n"));
  choose(2, form.mnuReplace);
  EXPECT_EQ(written(),
            "C:\\Music\\b.mp3\r\nC:\\Music\\d.mp3\r\nC:\\Music\\b.mp3\r\nC:\\Music\\d.mp3\r\n3\r\n"
            "C:\\Music\\b.mp3\r\nC:\\Music\\d.mp3\r\n");
  EXPECT_EQ(playlistBytes(form.List1.items(), machine.encoding), written());
}

TEST_F(EditorWindowTest, WithNothingClickedSongsGoToTheTopOfTheFile) {
  open("1\r\n2\r\n");
  editor.insertBefore();
  EXPECT_EQ(written(), "C:\\Music\\b.mp3\r\nC:\\Music\\d.mp3\r\n1\r\n2\r\n");
}

TEST_F(EditorWindowTest, BlankLinesStayAndCommentsGoWhenTheFileIsRewritten) {
  open("#EXTM3U\r\n1\r\n\r\n#EXTINF:1,x\r\n2\r\n");
  choose(2, form.mnuBefore);
  EXPECT_EQ(written(), "1\r\n\r\nC:\\Music\\b.mp3\r\nC:\\Music\\d.mp3\r\n2\r\n");
}

TEST_F(EditorWindowTest, AListThatWasEmptiedKeepsTheEmptyLineThroughAnInsert) {
  open("1\r\n2\r\n");
  choose(1, form.mnuRemove);
  choose(0, form.mnuRemove);
  EXPECT_EQ(written(), "");
  EXPECT_TRUE(form.form_4.visible());
  press(Key::Enter);
  form.mnuBefore.userClick();
  EXPECT_EQ(written(), "C:\\Music\\b.mp3\r\nC:\\Music\\d.mp3\r\n\r\n\r\n");
}

TEST_F(EditorWindowTest, InPlaylistModeEntriesAreWrittenAsTheyStand) {
  songs.setMode(library::ListMode::Playlist);
  list1.setItems({"D:\\x.mp3"});
  list1.setSelected(0, true);
  open("1\r\n");
  choose(0, form.mnuAfter);
  EXPECT_EQ(written(), "1\r\nD:\\x.mp3\r\n");
}

TEST_F(EditorWindowTest, TheFolderOfADriveGetsNoSecondSeparator) {
  folder = "C:\\";
  open("");
  EXPECT_EQ(written(), "C:\\b.mp3\r\nC:\\d.mp3\r\n");
}

TEST_F(EditorWindowTest, AClickOnAnEntryPopsTheMenuUpAgainAndAgain) {
  open("1\r\n2\r\n");
  form.List1.userClickRow(1, MouseButton::Left);
  form.List1.userClickRow(1, MouseButton::Left);
  form.List1.userClickRow(0, MouseButton::Right);
  form.List1.userClickRow(-1, MouseButton::Left);
  EXPECT_EQ(windows(), "windows.popUp | windows.popUp | windows.popUp");
  EXPECT_EQ(form.List1.listIndex(), 0);
  std::vector<std::string> captions;
  for (const controls::MenuItem* item : machine.windows.lastMenu()->items())
    captions.push_back(item->caption());
  EXPECT_EQ(captions,
            (std::vector<std::string>{"Add files before this file", "Add files after this file",
                                      "Replace file", "Remove from list"}));
}

TEST_F(EditorWindowTest, TheKeyboardOpensTheMenuAtAnEntryThatIsSeenToBeTheOne) {
  open("1\r\n2\r\n");
  press(Key::Menu);
  EXPECT_EQ(form.List1.listIndex(), 0);
  form.List1.setListIndex(1);
  press(Key::Enter);
  EXPECT_EQ(form.List1.listIndex(), 1);
  EXPECT_EQ(windows(), "windows.popUp | windows.popUp");
}

TEST_F(EditorWindowTest, EnterOnAButtonIsLeftToTheButton) {
  open("1\r\n");
  int clicks = 0;
  const auto heard = form.closeButton.click.subscribe([&clicks] { ++clicks; });
  machine.windows.focus(form.closeButton);
  press(Key::Enter);
  EXPECT_EQ(clicks, 0);
  EXPECT_EQ(windows(), "");
}

TEST_F(EditorWindowTest, DeleteTakesTheCurrentLineOutAndTheNextOneIsCurrent) {
  open("1\r\n2\r\n3\r\n");
  press(Key::Delete);
  EXPECT_EQ(form.List1.count(), 3);
  form.List1.setListIndex(1);
  press(Key::Delete);
  EXPECT_EQ(written(), "1\r\n3\r\n");
  EXPECT_EQ(form.List1.listIndex(), 1);
  press(Key::Delete);
  EXPECT_EQ(written(), "1\r\n");
  EXPECT_EQ(form.List1.listIndex(), 0);
}

TEST_F(EditorWindowTest, EscapeClosesAndTheMainWindowComesBack) {
  open("1\r\n");
  press(Key::Escape);
  EXPECT_FALSE(form.form_4.visible());
  EXPECT_TRUE(mainShown);
  EXPECT_EQ(form.List1.count(), 0);
}

TEST_F(EditorWindowTest, NextM3uClosesAndGoesOnWithTheSameSongs) {
  open("1\r\n");
  add = [this] {
    EXPECT_FALSE(form.form_4.visible());
    list1.deselectAll();  // a further song has started, and is selected now
    list1.setSelected(0, true);
    machine.bytes.put("C:\\Lists\\next.m3u", "");
    editor.playlistfile("C:\\Lists\\next.m3u");
  };
  form.Command1.userClick();
  EXPECT_EQ(machine.bytes.at("C:\\Lists\\next.m3u"), "C:\\Music\\b.mp3\r\nC:\\Music\\d.mp3\r\n");
  editor.playlistfile(kFile);
  EXPECT_EQ(form.waiting.caption(), "1 file to add");
}

TEST_F(EditorWindowTest, ASongThatStartsMeanwhileDoesNotTakeThePlaceOfTheChosenOnes) {
  open("1\r\n");
  list1.deselectAll();
  list1.setSelected(2, true);
  choose(0, form.mnuAfter);
  EXPECT_EQ(written(), "1\r\nC:\\Music\\b.mp3\r\nC:\\Music\\d.mp3\r\n");
  EXPECT_EQ(form.waiting.caption(), "2 files to add");
}

TEST_F(EditorWindowTest, AFileThatCannotBeReadLeavesTheEditorAsItWas) {
  open("1\r\n");
  EXPECT_THROW(editor.playlistfile("C:\\Lists\\gone.m3u"), base::Failure);
  EXPECT_EQ(form.List1.count(), 1);
  choose(0, form.mnuRemove);
  EXPECT_EQ(written(), "");
}

/// Every door call of every change fails once.
TEST_F(EditorWindowTest, AFailingDoorLeavesFileAndListWholeAndTheNextTryWorks) {
  for (controls::MenuItem* item :
       {&form.mnuBefore, &form.mnuAfter, &form.mnuReplace, &form.mnuRemove}) {
    for (std::uint64_t n = 1;; ++n) {
      open("1\r\n2\r\n");
      const std::uint64_t faults = machine.doorway.faults();
      machine.failDoorCall(n);
      choose(1, *item);
      machine.failDoorCall(0);
      if (machine.doorway.faults() == faults) {
        EXPECT_GT(n, 1u);
        break;
      }
      ASSERT_LT(n, 5u);
      EXPECT_EQ(written(), "1\r\n2\r\n") << item->caption();
      EXPECT_EQ(form.List1.items(), (std::vector<std::string>{"1", "2"})) << item->caption();
      EXPECT_EQ(form.notice.caption().empty(), item == &form.mnuReplace) << item->caption();
      choose(1, *item);
      EXPECT_NE(written(), "1\r\n2\r\n") << item->caption();
      EXPECT_EQ(form.notice.caption(), "");
    }
  }
}

TEST_F(EditorWindowTest, AFailingDoorWhileLoadingPassesToTheAddOperation) {
  for (std::uint64_t n = 1;; ++n) {
    put("");
    const std::uint64_t faults = machine.doorway.faults();
    machine.failDoorCall(n);
    try {
      editor.playlistfile(kFile);
    } catch (const base::Failure&) {
      EXPECT_EQ(written(), "");
    }
    machine.failDoorCall(0);
    if (machine.doorway.faults() == faults) {
      EXPECT_GT(n, 2u);  // reading and writing
      break;
    }
    ASSERT_LT(n, 5u);
  }
  EXPECT_EQ(written(), "C:\\Music\\b.mp3\r\nC:\\Music\\d.mp3\r\n");
}

}  // namespace
}  // namespace nerolith::playlist
