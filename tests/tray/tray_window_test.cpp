#include "tray/tray_window.h"

#include <gtest/gtest.h>

#include "platform/failure.h"
#include "platform/simulated/simulated_machine.h"

namespace nerolith::tray {
namespace {

using platform::simulated::Door;
using platform::simulated::SimulatedMachine;
using namespace std::chrono_literals;

// The host beside a main window with a list.
struct TrayWindowTest : testing::Test {
  TrayWindowTest() {
    main.setCaption("Main");
    main.setLayout(controls::column({controls::leaf(&List1), controls::leaf(&elsewhere)}));
    machine.windows.add(main);
    machine.windows.add(form.form);
    machine.windows.focus(elsewhere);
    closed = main.unload.subscribe([this] { asked += "unload "; });
    machine.clearTrace();
  }

  std::string windows() const { return machine.trace({Door::Windows}); }
  const std::string& message() const { return form.lblMessage.caption(); }

  SimulatedMachine machine;
  controls::Form main;
  controls::ListBox List1;
  controls::TextBox elsewhere;
  std::string asked;
  bool settingsFail = false;
  base::Subscription closed;
  forms::Form3 form;
  TrayWindow window{form,
                    machine.icon,
                    {main, List1, [this] { asked += "next "; },
                     [this] {
                       if (settingsFail) throw platform::Failure("no");
                       asked += "settings ";
                     }}};
};

TEST_F(TrayWindowTest, ControlsHaveTheirCaptions) {
  EXPECT_EQ(form.Label1.caption(), "Current Task Tray Message");
  EXPECT_EQ(form.cmdAdd.caption(), "&Add Icon");
  EXPECT_EQ(form.cmdDelete.caption(), "&Delete Icon");
  EXPECT_EQ(form.cmdClose.caption(), "&Close");
  EXPECT_EQ(form.mnuFile.caption(), "&File");
  const std::vector<controls::MenuItem*> items = {&form.mnuPlayNext, &form.mnuMessage, &form.mnuSep,
                                                  &form.mnuExit};
  EXPECT_EQ(form.mnuFile.items(), items);
  EXPECT_EQ(form.mnuPlayNext.caption(), "Play Next");
  EXPECT_EQ(form.mnuMessage.caption(), "Maximize");
  EXPECT_TRUE(form.mnuSep.separator());
  EXPECT_EQ(form.mnuExit.caption(), "E&xit");
}

TEST_F(TrayWindowTest, IsLoadedHiddenAndSaysUninitialized) {
  int made = 0;
  const auto loads = form.form.loadRequested.subscribe([&] { ++made; });
  window.load();
  window.load();
  EXPECT_EQ(made, 1);
  EXPECT_FALSE(form.form.visible());
  EXPECT_EQ(message(), "Uninitialized...");
}

TEST_F(TrayWindowTest, TheMainWindowsIconLeavesTheMessageAsItIs) {
  window.addIcon("Nerolith");
  EXPECT_TRUE(window.loaded());
  EXPECT_TRUE(machine.icon.shown());
  EXPECT_EQ(message(), "Uninitialized...");
}

TEST_F(TrayWindowTest, ThePanelAddsAndDeletesTheIcon) {
  window.load();
  form.cmdAdd.userClick();
  EXPECT_EQ(message(), "Initialized...");
  EXPECT_EQ(machine.icon.lastRecord().icon, &main);
  EXPECT_STREQ(machine.icon.lastRecord().tip.data(), "Nerolith");
  form.cmdDelete.userClick();
  EXPECT_EQ(message(), "Uninitialized...");
  EXPECT_EQ(machine.trace({Door::Icon}), "tray.add Nerolith | tray.delete");
}

TEST_F(TrayWindowTest, ThePanelSaysInitializedEvenWhereThereIsNoTray) {
  window.load();
  machine.icon.setAreaPresent(false);
  form.cmdAdd.userClick();
  EXPECT_EQ(message(), "Initialized...");
}

TEST_F(TrayWindowTest, CloseUnloadsItAndTheNextLoadBeginsAnew) {
  window.load();
  form.cmdAdd.userClick();
  form.form.setVisible(true);
  form.cmdClose.userClick();
  EXPECT_FALSE(form.form.visible());
  EXPECT_FALSE(window.loaded());
  EXPECT_EQ(message(), "Initialized...");
  window.addIcon("Nerolith");
  EXPECT_TRUE(window.loaded());
  EXPECT_EQ(message(), "Uninitialized...");
}

TEST_F(TrayWindowTest, LeftDownDoubleClickAndRightDownPopUpTheMenu) {
  window.addIcon("Nerolith");
  for (const int message : {513, 515, 516}) {
    machine.clearTrace();
    machine.icon.mouse(message);
    EXPECT_EQ(windows(), "windows.popUp &File") << message;
    EXPECT_EQ(machine.windows.lastMenu(), &form.mnuFile);
  }
}

TEST_F(TrayWindowTest, LeftUpRightUpRightDoubleClickAndAMoveDoNothing) {
  window.addIcon("Nerolith");
  machine.clearTrace();
  for (const int message : {514, 517, 518, 512, 519, 520, 521, 0}) machine.icon.mouse(message);
  EXPECT_EQ(windows(), "");
  EXPECT_EQ(asked, "");
}

TEST_F(TrayWindowTest, TheMouseOverThePictureItselfDoesNothing) {
  window.load();
  form.picTray.userMouseMove(47, 47);
  EXPECT_EQ(windows(), "");
}

TEST_F(TrayWindowTest, TheMenuIsOfferedToTheDesktop) {
  EXPECT_EQ(machine.icon.menu(), &form.mnuFile);
}

TEST_F(TrayWindowTest, PlayNextPlaysTheNextSong) {
  form.mnuPlayNext.userClick();
  EXPECT_EQ(asked, "next ");
}

TEST_F(TrayWindowTest, MaximizeClosesTheSettingsAndBringsTheWindowAndItsListForward) {
  main.setVisible(false);
  form.mnuMessage.userClick();
  EXPECT_EQ(asked, "settings ");
  EXPECT_TRUE(main.visible());
  EXPECT_EQ(windows(), "windows.forward Main");
  EXPECT_EQ(machine.windows.focused(), &List1);
}

TEST_F(TrayWindowTest, MaximizeOfAWindowThatIsShownBringsItForward) {
  form.mnuMessage.userClick();
  EXPECT_EQ(windows(), "windows.forward Main");
  EXPECT_EQ(machine.windows.focused(), &List1);
}

TEST_F(TrayWindowTest, MaximizeEndsQuietlyAtAnError) {
  main.setVisible(false);
  settingsFail = true;
  EXPECT_NO_THROW(form.mnuMessage.userClick());
  EXPECT_FALSE(main.visible());
  EXPECT_EQ(windows(), "");
  EXPECT_EQ(machine.windows.focused(), &elsewhere);
}

TEST_F(TrayWindowTest, ExitUnloadsTheMainWindow) {
  form.mnuExit.userClick();
  EXPECT_EQ(asked, "unload ");
}

TEST_F(TrayWindowTest, TheSeparatorDoesNothing) {
  form.mnuSep.userClick();
  EXPECT_EQ(asked, "");
}

}  // namespace
}  // namespace nerolith::tray
