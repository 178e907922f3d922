// The tray icon of the whole player.
#include "program_fixture.h"

namespace nerolith::app {
namespace {

class TrayRun : public ProgramTest {
 protected:
  TrayRun() {
    storeEarlierRun("2");
    addSongs("C:\\Music", 3);
    program = std::make_unique<Program>(machine.doors(), StandIns{&playlists, nullptr, &recording});
    program->start({});
    machine.advance(0ms);
    machine.advance(0ms);  // the idle moment behind the activation
  }
  forms::Form3& tray() { return program->trayForm(); }
  std::string icon() { return machine.trace({Door::Icon}); }
  void pressHide() { form().Label5[1].userClick(); }
  void hide() {
    pressHide();
    EXPECT_FALSE(form().form.visible());
  }
};

TEST_F(TrayRun, TheIconComesWithTheWindowsFirstActivation) {
  EXPECT_EQ(icon(), "tray.add Nerolith");
  EXPECT_EQ(machine.icon.lastRecord().icon, &form().form);
  EXPECT_EQ(machine.icon.lastRecord().window, &tray().picTray);
  EXPECT_FALSE(tray().form.visible());
}

TEST_F(TrayRun, Form3IsLoadedHiddenAtTheStartThoughNoIconComes) {
  program.reset();
  TracedIcon standIn(machine);
  Program other(machine.doors(), StandIns{&playlists, &standIn, &recording});
  int loads = 0;
  const auto seen = other.trayForm().form.loadRequested.subscribe([&] { ++loads; });
  other.start("1");
  machine.advance(1s);
  EXPECT_EQ(loads, 1);
  EXPECT_EQ(other.trayForm().lblMessage.caption(), "Uninitialized...");
  EXPECT_FALSE(other.trayForm().form.visible());
}

TEST_F(TrayRun, EachActivationAddsItOnceMoreWhichTheAreaIgnores) {
  form().form.activate.raise();
  form().form.activate.raise();
  machine.advance(0ms);
  form().form.activate.raise();
  machine.advance(0ms);
  EXPECT_EQ(icon(), "tray.add Nerolith | tray.add Nerolith | tray.add Nerolith");
  EXPECT_TRUE(machine.icon.shown());
}

TEST_F(TrayRun, AnIconThatCannotBeAddedIsAddedByTheNextActivation) {
  machine.icon.notify(platform::NotifyMessage::Delete, {});
  machine.failDoorCall(1);
  form().form.activate.raise();
  machine.advance(0ms);
  EXPECT_FALSE(machine.icon.shown());
  form().form.activate.raise();
  machine.advance(0ms);
  EXPECT_TRUE(machine.icon.shown());
}

TEST_F(TrayRun, PlayNextPlaysTheNextSong) {
  EXPECT_EQ(playing(), "a.mp3");
  tray().mnuPlayNext.userClick();
  EXPECT_EQ(playing(), "b.mp3");
}

TEST_F(TrayRun, MaximizeBringsAHiddenWindowBackAndClosesTheSettings) {
  program->settingsForm().form.setVisible(true);
  machine.advance(0ms);
  hide();
  tray().mnuMessage.userClick();
  machine.advance(0ms);
  EXPECT_TRUE(form().form.visible());
  EXPECT_FALSE(program->settingsForm().form.visible());
  EXPECT_EQ(machine.windows.focused(), &form().List1);
}

TEST_F(TrayRun, ExitSavesTheRunTakesTheIconOutAndEndsTheProgram) {
  hide();
  machine.clearTrace();
  tray().mnuExit.userClick();
  EXPECT_EQ(icon(), "tray.delete");
  EXPECT_TRUE(machine.quitAsked());
  EXPECT_NE(machine.trace().find("settings.write Velmarion/Path/path=C:\\Music"),
            std::string::npos);
  EXPECT_FALSE(form().form.visible());
}

TEST_F(TrayRun, ClosingUnloadsForm3AndAddsNoIconAnyMore) {
  int unloads = 0;
  const auto seen = tray().form.unload.subscribe([&] { ++unloads; });
  form().form.activate.raise();
  form().form.close();
  form().form.activate.raise();
  machine.advance(1s);
  EXPECT_EQ(unloads, 1);
  EXPECT_EQ(icon(), "tray.add Nerolith | tray.delete");
}

TEST_F(TrayRun, HidesOnlyWhileSomethingShowsTheIcon) {
  bool minimised = false;
  const auto seen = form().form.minimiseRequested.subscribe([&] { minimised = true; });
  machine.icon.setAreaPresent(false);
  pressHide();
  EXPECT_TRUE(form().form.visible());
  EXPECT_TRUE(minimised);
  minimised = false;
  machine.icon.setAreaPresent(true);
  pressHide();
  EXPECT_FALSE(form().form.visible());
  EXPECT_FALSE(minimised);
}

TEST_F(TrayRun, AHiddenWindowComesBackWhenTheTrayGoes) {
  hide();
  machine.icon.setAreaPresent(false);
  EXPECT_TRUE(form().form.visible());
}

TEST_F(TrayRun, AHiddenWindowComesBackWhenThePanelDeletesTheIcon) {
  hide();
  tray().cmdDelete.userClick();
  EXPECT_TRUE(form().form.visible());
}

TEST_F(TrayRun, AWindowThatTheUserDidNotHideStaysHiddenWhenTheTrayGoes) {
  hide();
  tray().mnuMessage.userClick();
  form().form.setVisible(false);  // as for the playlist editor
  machine.icon.setAreaPresent(false);
  EXPECT_FALSE(form().form.visible());
}

TEST_F(TrayRun, EndingWithAHiddenWindowNeverShowsIt) {
  hide();
  bool shown = false;
  const auto seen = form().form.changed.subscribe([&] { shown |= form().form.visible(); });
  form().form.close();
  program.reset();
  EXPECT_FALSE(shown);
}

TEST_F(TrayRun, AProgramThatEndsWithoutAGoodbyeTakesItsIconAlong) {
  machine.clearTrace();
  program.reset();
  EXPECT_EQ(icon(), "tray.delete");
}

}  // namespace
}  // namespace nerolith::app
