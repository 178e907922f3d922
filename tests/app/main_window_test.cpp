#include "program_fixture.h"

namespace nerolith::app {
namespace {

using controls::Key;
using controls::MouseButton;

class MainWindowRun : public ProgramTest {
 protected:
  MainWindowRun() {
    storeEarlierRun("1");
    addSongs("C:\\Music", 3);
    start();
    machine.clearTrace();
  }
  void press(Key key, bool alt = false) { form().form.keyDown.raise({.key = key, .alt = alt}); }
  std::string asked() { return machine.trace({Door::Events}); }
};

TEST_F(MainWindowRun, ActivationFocusesTheListHidesTheFoldersAndAddsTheIcon) {
  form().Dir1.setVisible(true);
  form().form.activate.raise();
  EXPECT_EQ(machine.windows.focused(), &form().List1);
  EXPECT_FALSE(form().Dir1.visible());
  EXPECT_EQ(asked(), "icon.add Nerolith");
}

TEST_F(MainWindowRun, AltWithALetterReachesThePlaylists) {
  for (const char letter : {'U', 'Q', 'A', 'I', 'C'}) press(controls::letterKey(letter), true);
  EXPECT_EQ(asked(),
            "playlists.update | playlists.quickAdd | playlists.add | playlists.import | "
            "playlists.clear");
}

TEST_F(MainWindowRun, LettersWithoutAltDoNothing) {
  for (const char letter : {'U', 'Q', 'A', 'I', 'C'}) press(controls::letterKey(letter));
  EXPECT_EQ(asked(), "");
}

TEST_F(MainWindowRun, DeleteRemovesTheSelectionWithOrWithoutModifiers) {
  press(Key::Delete);
  press(Key::Delete, true);
  form().form.keyDown.raise({.key = Key::Delete, .shift = true, .control = true});
  EXPECT_EQ(asked(), "selection.remove | selection.remove | selection.remove");
}

TEST_F(MainWindowRun, EnterGivesTheListTheFocus) {
  machine.windows.focus(form().Drive1);
  press(Key::Enter);
  EXPECT_EQ(machine.windows.focused(), &form().List1);
}

TEST_F(MainWindowRun, SpaceStartsTheCurrentEntryAndOtherCharactersDoNot) {
  form().List1.userMoveTo(1);
  form().List1.keyPress.raise('b');
  EXPECT_EQ(machine.decks.audibleGraphs(), 0);
  form().List1.keyPress.raise(32);
  EXPECT_EQ(playing(), "b.mp3");
}

TEST_F(MainWindowRun, ThePlayFaceStartsTheFirstSongWhenNoneIsCurrent) {
  form().Label8[0].userClick();
  EXPECT_EQ(playing(), "a.mp3");
  EXPECT_EQ(form().List1.listIndex(), 0);
}

TEST_F(MainWindowRun, ThePlayFaceStartsTheCurrentSong) {
  form().List1.userMoveTo(2);
  form().Label8[0].userClick();
  EXPECT_EQ(playing(), "c.mp3");
}

TEST_F(MainWindowRun, TheFacesWorkTheButtonsBehindThem) {
  form().Label8[0].userClick();
  form().Label8[2].userClick();
  EXPECT_EQ(form().Command4.caption(), "&Resume");
  form().Label8[2].userClick();
  EXPECT_EQ(form().Command4.caption(), "&Pause");
  form().Label8[3].userClick();
  EXPECT_EQ(machine.decks.audibleGraphs(), 0);
  form().Option2.userClick();
  form().Label8[1].userClick();
  EXPECT_EQ(playing(), "b.mp3");
}

TEST_F(MainWindowRun, TheRefreshFaceReadsTheFolderAgain) {
  machine.files.addFile("C:\\Music\\new.mp3");
  form().Label8[4].userClick();
  EXPECT_EQ(form().List1.count(), 4);
}

TEST_F(MainWindowRun, APressedFaceLightsItsLampRedUntilItIsLetGo) {
  for (std::size_t i = 0; i < form().Label10.size(); ++i) {
    form().Label8[i].mouseDown.raise(MouseButton::Left);
    EXPECT_EQ(form().Label10[i].backColour(), controls::kRed) << i;
    form().Label8[i].mouseUp.raise(MouseButton::Left);
    EXPECT_EQ(form().Label10[i].backColour(), controls::kGrey) << i;
  }
  form().Label8[5].mouseDown.raise(MouseButton::Left);  // has no lamp, and needs none
}

TEST_F(MainWindowRun, TheWordsBesideTheLampsChooseTheMode) {
  form().Label7[1].userClick();
  EXPECT_TRUE(form().Option2.value());
  form().Label7[2].userClick();
  EXPECT_TRUE(form().Option3.value());
  form().Label7[0].userClick();
  EXPECT_TRUE(form().Option1.value());
  form().Label7[3].userClick();
  EXPECT_EQ(form().Check1.value(), 1);
  form().Check1.setValue(2);
  form().Label7[3].userClick();
  EXPECT_EQ(form().Check1.value(), 0);
}

TEST_F(MainWindowRun, TheHideKeyHidesOnlyWhenAnIconCanBringTheWindowBack) {
  bool minimised = false;
  const auto seen = form().form.minimiseRequested.subscribe([&] { minimised = true; });
  icon.shown = false;
  form().Label5[1].userClick();
  EXPECT_TRUE(form().form.visible());
  EXPECT_TRUE(minimised);
  icon.shown = true;
  form().Label5[1].userClick();
  EXPECT_FALSE(form().form.visible());
}

TEST_F(MainWindowRun, CloseSavesInItsOrderDeletesMarkedFilesAndRemovesTheIcon) {
  playlists.remembered = "C:\\x.m3u";
  form().Label5[0].userClick();
  EXPECT_EQ(machine.trace({Door::Settings, Door::Events}),
            "settings.write Velmarion/Path/path=C:\\Music | "
            "settings.write Velmarion/Path/plname=C:\\x.m3u | "
            "settings.write " +
                kDisplay +
                "/Setting/setting=1 | "
                "settings.write " +
                kDisplay +
                "/Setting/lo=False | "
                "selection.deleteMarked | icon.remove | events.quit");
  EXPECT_TRUE(machine.quitAsked());
}

TEST_F(MainWindowRun, CloseGoesOnAfterEachFailingStep) {
  for (std::uint64_t n = 1; n <= 4; ++n) {
    machine.failDoorCall(n);
    form().form.close();
    EXPECT_NE(machine.trace().find("selection.deleteMarked | icon.remove"), std::string::npos) << n;
    program.reset();
    start();
    machine.clearTrace();
  }
}

TEST_F(MainWindowRun, TheMenuShowsOnlyWhatWorks) {
  EXPECT_FALSE(form().Command7.enabled());
  form().List1.mouseDown.raise(MouseButton::Right);
  EXPECT_EQ(machine.windows.lastMenu(), nullptr);
}

}  // namespace
}  // namespace nerolith::app
