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
  void markForDeletion(const std::string& name) {
    machine.settings.set("Nerolith", "Setting", "mark_for_deletion", "True");
    machine.dialogs.answer(platform::Answer::Yes);
    form().List1.deselectAll();
    for (int i = 0; i < form().List1.count(); ++i)
      if (form().List1.item(i) == name) form().List1.setSelected(i, true);
    press(Key::Delete);
  }
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
  form().List1.setSelected(0, true);
  press(Key::Delete);
  EXPECT_EQ(form().List1.items(), (std::vector<std::string>{"b.mp3", "c.mp3"}));
  form().List1.setSelected(1, true);
  press(Key::Delete, true);
  form().List1.setSelected(0, true);
  form().form.keyDown.raise({.key = Key::Delete, .shift = true, .control = true});
  EXPECT_EQ(form().List1.count(), 0);
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
  markForDeletion("b.mp3");
  machine.clearTrace();
  form().Label5[0].userClick();
  EXPECT_EQ(machine.trace({Door::Settings, Door::Events, Door::Files}),
            "settings.write Velmarion/Path/path=C:\\Music | "
            "settings.write Velmarion/Path/plname=C:\\x.m3u | "
            "settings.write " +
                kDisplay +
                "/Setting/setting=1 | "
                "settings.write " +
                kDisplay +
                "/Setting/lo=False | "
                "files.plain C:\\Music\\b.mp3 | files.delete C:\\Music\\b.mp3 | "
                "icon.remove | events.quit");
  EXPECT_TRUE(machine.quitAsked());
}

TEST_F(MainWindowRun, CloseGoesOnAfterEachFailingStep) {
  for (std::uint64_t n = 1; n <= 20; ++n) {
    machine.files.addFile("C:\\Music\\c.mp3");
    program.reset();
    start();
    markForDeletion("c.mp3");
    machine.clearTrace();
    const std::uint64_t faults = machine.doorway.faults();
    machine.failDoorCall(n);
    form().form.close();
    machine.failDoorCall(0);
    const bool struck = machine.doorway.faults() > faults;
    const bool deletionFailed = machine.trace().find("c.mp3 failed") != std::string::npos;
    EXPECT_EQ(machine.files.find("C:\\Music\\c.mp3") == nullptr, !deletionFailed) << n;
    EXPECT_NE(machine.trace().find("icon.remove | events.quit"), std::string::npos) << n;
    if (!struck) return;  // every call of the close has failed once
  }
  FAIL() << "the close asks for more than was foreseen";
}

TEST_F(MainWindowRun, TheMenuShowsOnlyWhatWorks) {
  form().List1.mouseDown.raise(MouseButton::Right);
  const controls::MenuItem* menu = machine.windows.lastMenu();
  ASSERT_NE(menu, nullptr);
  ASSERT_EQ(menu->items().size(), 4U);
  const controls::MenuItem& funct = *menu->items()[0];
  EXPECT_TRUE(funct.visible());
  std::vector<std::string> shown;
  for (const controls::MenuItem* item : funct.items())
    if (item->visible()) shown.push_back(item->caption());
  EXPECT_EQ(shown,
            (std::vector<std::string>{
                "Select unplayed files", "Tag selected as played", "Tag selected as unplayed",
                "Remove selected from list    (Del)", "Total selected playtime"}));
  EXPECT_TRUE(menu->items()[1]->visible());
}

TEST_F(MainWindowRun, TheMenuComesFromTheRightButtonOptionsTheFaceAndTheMenuKey) {
  EXPECT_TRUE(form().Command7.enabled());
  form().List1.mouseDown.raise(MouseButton::Left);
  form().List1.mouseDown.raise(MouseButton::Right);
  form().Command7.userClick();
  form().Label8[5].userClick();
  press(Key::Menu);
  EXPECT_EQ(machine.trace({Door::Windows}),
            "windows.popUp | windows.popUp | windows.popUp | windows.popUp");
}

TEST_F(MainWindowRun, TheListIsNotHeldOnceTheMenuHasTakenTheMouse) {
  form().List1.mouseDown.raise(MouseButton::Right);
  EXPECT_FALSE(program->songs().held);
}

}  // namespace
}  // namespace nerolith::app
