// The settings window in the whole player: what is typed there is what the player does.
#include "program_fixture.h"

namespace nerolith::app {
namespace {

using controls::Key;
using platform::Answer;

class SettingsRun : public ProgramTest {
 protected:
  void open(const std::string& mode, int songs) {
    storeEarlierRun(mode);
    addSongs("C:\\Music", songs);
    start();
    form().Command7.userClick();
    machine.windows.lastMenu()->items().back()->userClick();
    machine.advance(0ms);
  }
  forms::SettingsForm& settings() { return program->settingsForm(); }
  std::string stored(const std::string& application, const std::string& key) {
    return machine.settings.stored(application, "Setting", key).value_or("(absent)");
  }
};

TEST_F(SettingsRun, SettingsIsTheLastItemOfTheMenuAndOpensTheWindow) {
  open("1", 3);
  EXPECT_EQ(machine.windows.lastMenu()->items().back()->caption(), "Settings");
  EXPECT_TRUE(settings().form.visible());
  EXPECT_EQ(settings().Text4.text(), "10");
}

TEST_F(SettingsRun, ALeadTypedWhileASongPlaysIsTheOneItMixesAt) {
  open("2", 3);
  ASSERT_EQ(playing(), "a.mp3");
  machine.windows.focus(settings().Text4);
  settings().Text4.setText("20");
  machine.windows.focus(settings().Text3);
  machine.advance(9s);
  EXPECT_EQ(playing(), "a.mp3");
  machine.advance(2s);  // 30 s long, and 20 s before its end is gone by
  EXPECT_EQ(playing(), "b.mp3");
}

TEST_F(SettingsRun, AKeyTextWorksAtTheNextPressOfItsKey) {
  open("3", 5);
  settings().Text8.setText("D");
  form().form.keyDown.raise({.key = static_cast<Key>(static_cast<int>(Key::F1) + 2)});
  EXPECT_EQ(form().List1.selectedCount(), 1);
  EXPECT_TRUE(form().List1.selected(3));
}

TEST_F(SettingsRun, AKeyPressedInTheSettingsWindowSelectsAndRemovesNothing) {
  open("3", 5);
  settings().Text6.setText("a");
  form().List1.deselectAll();
  form().List1.setSelected(1, true);
  settings().form.keyDown.raise({.key = Key::F1});
  settings().form.keyDown.raise({.key = Key::Delete});
  EXPECT_FALSE(form().List1.selected(0));
  EXPECT_EQ(form().List1.count(), 5);
}

TEST_F(SettingsRun, TickingTheSwitchMakesTheNextRemovalAsk) {
  open("1", 3);
  settings().Check2.userClick();
  form().List1.setSelected(0, true);
  machine.dialogs.answer(Answer::No);
  form().form.keyDown.raise({.key = Key::Delete});
  EXPECT_NE(machine.trace().find("Mark selected files for deletion, when closing program?"),
            std::string::npos);
  EXPECT_EQ(form().List1.count(), 2);
}

TEST_F(SettingsRun, SaveStoresTheFolderThatIsShown) {
  machine.files.addFolder("C:\\Music\\Jazz");
  open("1", 1);
  form().Dir1.userOpen("C:\\Music\\Jazz");
  settings().Text6.setText("Amber");
  settings().Command1.userClick();
  EXPECT_EQ(machine.settings.stored("Velmarion", "Path", "path"), "C:\\Music\\Jazz");
  EXPECT_EQ(stored("Nerolith", "key0"), "Amber");
  EXPECT_FALSE(settings().form.visible());
}

TEST_F(SettingsRun, ClosingThePlayerTakesTheWindowWithItAndKeepsUnsavedSettingsUnsaved) {
  open("1", 1);
  settings().Text6.setText("Amber");
  form().form.close();
  EXPECT_FALSE(settings().form.visible());
  EXPECT_EQ(stored("Nerolith", "key0"), "(absent)");
  EXPECT_TRUE(machine.quitAsked());
}

}  // namespace
}  // namespace nerolith::app
