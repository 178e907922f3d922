#include "settings/settings_window.h"

#include <gtest/gtest.h>

#include "platform/simulated/simulated_machine.h"

namespace nerolith::settings {
namespace {

using controls::Key;
using platform::simulated::Door;
using platform::simulated::SimulatedMachine;

const std::string kOwnSetting = "settings.write Nerolith/Setting/";

struct SettingsWindowTest : testing::Test {
  SettingsWindowTest() {
    live.fadeLength = 5;
    live.keyTexts = {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"};
    machine.windows.add(form.form);
  }
  ~SettingsWindowTest() override { machine.windows.remove(form.form); }

  void open() {
    form2aan.userClick();
    machine.advance(std::chrono::seconds(0));
    machine.clearTrace();
  }
  /// The user goes to `box`, clears it and types.
  void type(controls::TextBox& box, const std::string& text) {
    machine.windows.focus(box);
    box.setText(text);
  }
  void leave() { machine.windows.focus(form.Command1); }
  void enter(controls::TextBox& box) { box.keyPress.raise(13); }
  std::string writes() const { return machine.trace({Door::Settings}); }

  SimulatedMachine machine;
  LiveSettings live;
  StoredSettings stored{machine.settings, live};
  controls::MenuItem form2aan{"Settings"};
  forms::SettingsForm form;
  SettingsWindow window{form, form2aan, live, stored, [] { return std::string("C:\\Music\\"); }};
};

TEST_F(SettingsWindowTest, TheMenuItemOpensItAtTheFirstBox) {
  EXPECT_FALSE(window.isOpen());
  open();
  EXPECT_TRUE(form.form.visible());
  EXPECT_EQ(machine.windows.focused(), &form.Text3);
}

TEST_F(SettingsWindowTest, OpenedAgainItComesToTheFront) {
  open();
  form2aan.userClick();
  EXPECT_EQ(machine.trace({Door::Windows}), "windows.forward Settings");
  EXPECT_TRUE(window.isOpen());
}

TEST_F(SettingsWindowTest, ItShowsTheLiveValuesAndTheStoredSwitch) {
  live.mixLead = 12.5F;
  live.recentAfter = 7;
  live.recentDays = -1;
  live.recentRule = base::kTrue;
  live.keyTexts[3] = "Blue";
  machine.settings.set("Nerolith", "Setting", "mark_for_deletion", "True");
  open();
  EXPECT_EQ(form.Text3.text(), "5");
  EXPECT_EQ(form.Text4.text(), "12.5");
  EXPECT_EQ(form.Text1.text(), "7");
  EXPECT_EQ(form.Text2.text(), "-1");
  EXPECT_EQ(form.Check1.value(), 1);
  EXPECT_EQ(form.Text9.text(), "Blue");
  EXPECT_EQ(form.Text15.text(), "9");
  EXPECT_EQ(form.Check2.value(), 1);
}

TEST_F(SettingsWindowTest, EachActivationShowsTheValuesAnew) {
  open();
  live.recentDays = 90;
  machine.settings.set("Nerolith", "Setting", "mark_for_deletion", "1");
  form.form.activate.raise();
  EXPECT_EQ(form.Text2.text(), "90");
  EXPECT_EQ(form.Check2.value(), 1);
}

TEST_F(SettingsWindowTest, ShowingStoresNothingAndChangesNothing) {
  live.mixLead = 0.1F;
  live.recentRule = base::kTrue;
  machine.settings.set("Nerolith", "Setting", "mark_for_deletion", "yes 1");
  const LiveSettings before = live;
  open();
  form.form.activate.raise();
  EXPECT_EQ(writes().find("write"), std::string::npos) << writes();
  EXPECT_EQ(live.mixLead, before.mixLead);
  EXPECT_EQ(live.recentRule, before.recentRule);
  EXPECT_EQ(live.keyTexts, before.keyTexts);
}

TEST_F(SettingsWindowTest, NumbersOfTheRecentRuleAreLiveWithEachSign) {
  open();
  type(form.Text1, "1");
  EXPECT_EQ(live.recentAfter, 1);
  type(form.Text1, "12");
  EXPECT_EQ(live.recentAfter, 12);
  type(form.Text2, "365");
  EXPECT_EQ(live.recentDays, 365);
  EXPECT_EQ(writes(), "");
}

TEST_F(SettingsWindowTest, ATextThatIsNoNumberCountsAsItsLeadingOneHeldTo16Bits) {
  open();
  const auto typed = [this](const std::string& text) {
    type(form.Text1, text);
    return live.recentAfter;
  };
  EXPECT_EQ(typed("12 songs"), 12);
  EXPECT_EQ(typed("songs"), 0);
  EXPECT_EQ(typed(""), 0);
  EXPECT_EQ(typed("2.5"), 2);
  EXPECT_EQ(typed("3.5"), 4);
  EXPECT_EQ(typed("32768"), 32767);
  EXPECT_EQ(typed("-99999"), -32768);
  EXPECT_EQ(typed("1e99"), 32767);
  EXPECT_EQ(form.Text1.text(), "1e99");
}

TEST_F(SettingsWindowTest, FastKeyTextsAreLiveToTheLetter) {
  open();
  type(form.Text6, " Amber ");
  type(form.Text15, "");
  EXPECT_EQ(live.keyTexts[0], " Amber ");
  EXPECT_EQ(live.keyTexts[9], "");
  const auto boxes = form.keyBoxes();
  for (std::size_t key = 0; key < boxes.size(); ++key) {
    type(*boxes[key], "text " + std::to_string(key));
    EXPECT_EQ(live.keyTexts[key], "text " + std::to_string(key));
  }
}

TEST_F(SettingsWindowTest, TheRuleIsOnWhileItsBoxIsTicked) {
  open();
  form.Check1.userClick();
  EXPECT_EQ(live.recentRule, base::kTrue);
  form.Check1.userClick();
  EXPECT_EQ(live.recentRule, base::kFalse);
  form.Check1.setValue(2);
  EXPECT_EQ(live.recentRule, base::kFalse);
}

TEST_F(SettingsWindowTest, TheDeletionSwitchIsStoredAtOnceAndOutlivesAnEsc) {
  open();
  form.Check2.userClick();
  EXPECT_EQ(writes(), kOwnSetting + "mark_for_deletion=True");
  form.form.keyDown.raise({.key = Key::Escape});
  EXPECT_FALSE(window.isOpen());
  EXPECT_TRUE(stored.readMarkForDeletion());
  open();
  EXPECT_EQ(form.Check2.value(), 1);
  form.Check2.userClick();
  EXPECT_EQ(writes(), kOwnSetting + "mark_for_deletion=False");
}

TEST_F(SettingsWindowTest, ADeletionSwitchThatCannotBeStoredDoesNotLookAsIfItWere) {
  open();
  machine.failDoorCall(1);
  form.Check2.userClick();
  EXPECT_EQ(form.Check2.value(), 0);
  EXPECT_FALSE(stored.readMarkForDeletion());
}

TEST_F(SettingsWindowTest, ALengthAboveTheLeadBecomesTheLeadOnLeaving) {
  live.mixLead = 8;
  open();
  type(form.Text3, "10");
  EXPECT_EQ(live.fadeLength, 5);
  leave();
  EXPECT_EQ(form.Text3.text(), "8");
  EXPECT_EQ(live.fadeLength, 8);
}

TEST_F(SettingsWindowTest, ALeadAboveSixtyBecomesTheLengthOnLeaving) {
  open();
  type(form.Text4, "70");
  leave();
  EXPECT_EQ(form.Text4.text(), "5");
  EXPECT_EQ(live.mixLead, 5);
}

TEST_F(SettingsWindowTest, TheCopyOfALongLeadIsNotHeldToThirtySeconds) {
  open();
  type(form.Text4, "45");
  leave();
  type(form.Text3, "40");
  leave();
  EXPECT_EQ(form.Text3.text(), "45");
  EXPECT_EQ(live.fadeLength, 45);
}

TEST_F(SettingsWindowTest, FractionsOfASecondAreKept) {
  open();
  type(form.Text4, "7.25s");
  leave();
  type(form.Text3, "2.5");
  leave();
  EXPECT_EQ(live.mixLead, 7.25F);
  EXPECT_EQ(live.fadeLength, 2.5F);
  EXPECT_EQ(form.Text4.text(), "7.25s");
}

TEST_F(SettingsWindowTest, EnterTakesTheMixOverAndStaysInTheBox) {
  live.mixLead = 8;
  open();
  type(form.Text3, "10");
  form.Text3.keyPress.raise('0');
  EXPECT_EQ(form.Text3.text(), "10");
  enter(form.Text3);
  EXPECT_EQ(form.Text3.text(), "8");
  EXPECT_EQ(live.fadeLength, 8);
  EXPECT_EQ(machine.windows.focused(), &form.Text3);
  type(form.Text4, "9");
  enter(form.Text4);
  EXPECT_EQ(live.mixLead, 9);
  EXPECT_EQ(machine.windows.focused(), &form.Text4);
}

TEST_F(SettingsWindowTest, SaveWritesEverySettingInItsOrderAndCloses) {
  open();
  type(form.Text4, "20");
  type(form.Text3, "6");
  type(form.Text6, "Amber");
  type(form.Text1, "3");
  type(form.Text2, "14");
  form.Check1.userClick();
  form.Command1.userClick();
  const std::string display = "settings.write Microsoft Visual Basic AddIns/Setting/";
  std::string expected = "settings.write Velmarion/Path/path=C:\\Music\\ | " + display +
                         "setting=1 | " + display + "fadelen=6 | " + display + "fadem=20 | " +
                         display + "ti=False | " + display + "color=2 | " + display + "lo=False";
  for (int key = 0; key < 10; ++key)
    expected += " | " + kOwnSetting + "key" + std::to_string(key) + "=" +
                (key == 0 ? "Amber" : std::to_string(key));
  expected += " | " + kOwnSetting + "frmaant=3 | " + kOwnSetting + "frmday=14 | " + kOwnSetting +
              "enabl=True";
  EXPECT_EQ(writes(), expected);
  EXPECT_FALSE(window.isOpen());
}

TEST_F(SettingsWindowTest, ASaveThatFailsStopsThereAndLeavesTheWindowOpen) {
  open();
  machine.failDoorCall(8);
  form.Command1.userClick();
  EXPECT_TRUE(window.isOpen());
  EXPECT_TRUE(machine.settings.stored("Microsoft Visual Basic AddIns", "Setting", "lo"));
  EXPECT_FALSE(machine.settings.stored("Nerolith", "Setting", "key1"));
}

TEST_F(SettingsWindowTest, EscClosesAndStoresNothingWhileTheLiveValuesStay) {
  open();
  type(form.Text6, "Amber");
  form.form.keyDown.raise({.key = Key::Escape});
  EXPECT_FALSE(window.isOpen());
  EXPECT_EQ(writes(), "");
  EXPECT_EQ(live.keyTexts[0], "Amber");
  EXPECT_EQ(machine.settings.size(), 0U);
}

TEST_F(SettingsWindowTest, WhatWasStillBeingTypedAtTheCloseIsDropped) {
  open();
  type(form.Text3, "9");
  window.closeIfOpen();
  form.Text3.lostFocus.raise();  // the window goes, and the keyboard with it
  EXPECT_EQ(live.fadeLength, 5);
  open();
  EXPECT_EQ(form.Text3.text(), "5");
}

TEST_F(SettingsWindowTest, ClosingAClosedWindowDoesNothing) {
  int unloads = 0;
  const auto counted = form.form.unload.subscribe([&] { ++unloads; });
  window.closeIfOpen();
  EXPECT_EQ(unloads, 0);
  open();
  window.closeIfOpen();
  EXPECT_EQ(unloads, 1);
  EXPECT_FALSE(window.isOpen());
}

}  // namespace
}  // namespace nerolith::settings
