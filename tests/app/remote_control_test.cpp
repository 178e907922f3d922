#include "program_fixture.h"

namespace nerolith::app {
namespace {

using platform::PlayState;
using platform::Repeat;

/// Three songs of 30 s in Auto next, mixed 10 s before the end; nothing plays yet.
class RemoteControlRun : public ProgramTest {
 protected:
  RemoteControlRun() {
    addSongs("C:\\Music", 3);
    storeEarlierRun("1");
    start();
    form().Option2.setValue(true);
    tick();
  }

  void tick() { machine.advance(100ms); }
  platform::MediaCommands& desktop() { return *machine.media.commands(); }
  const platform::MediaStatus& shown() { return machine.media.shown(); }
  double position() { return program->player().decks().current()->currentPosition(); }
  std::string mediaTrace() const { return machine.trace({Door::Media}); }
};

TEST_F(RemoteControlRun, BeforeTheFirstSongThereIsNoneButPlayIsPossible) {
  EXPECT_EQ(shown().state, PlayState::Stopped);
  EXPECT_EQ(shown().song, 0U);
  EXPECT_EQ(shown().title, "");
  EXPECT_TRUE(shown().canPlay);
  EXPECT_FALSE(shown().canPause);
  EXPECT_FALSE(shown().canSeek);
  EXPECT_TRUE(shown().canGoNext);
}

TEST_F(RemoteControlRun, PlayStartsTheFirstSongAndTellsItsNamePathAndLength) {
  desktop().play();
  EXPECT_EQ(playing(), "a.mp3");
  EXPECT_EQ(shown().state, PlayState::Playing);
  EXPECT_EQ(shown().title, "a");
  EXPECT_EQ(shown().path, "C:\\Music\\a.mp3");
  EXPECT_EQ(shown().length, 30);
  EXPECT_EQ(shown().volume, 1);
  EXPECT_TRUE(shown().canPause);
  EXPECT_TRUE(shown().canSeek);
}

TEST_F(RemoteControlRun, PlayWhilePlayingDoesNothing) {
  desktop().play();
  machine.advance(3s);
  desktop().play();
  EXPECT_NEAR(position(), 3, 0.01);
  EXPECT_EQ(machine.decks.audibleGraphs(), 1);
}

TEST_F(RemoteControlRun, PauseFreezesAndOnlyPlayGoesOn) {
  desktop().play();
  machine.advance(3s);
  desktop().pause();
  EXPECT_EQ(shown().state, PlayState::Paused);
  machine.advance(2s);
  desktop().pause();
  EXPECT_EQ(shown().state, PlayState::Paused);
  EXPECT_NEAR(shown().position, 3, 0.01);
  desktop().play();
  EXPECT_EQ(shown().state, PlayState::Playing);
  machine.advance(1s);
  EXPECT_NEAR(position(), 4, 0.01);
  EXPECT_EQ(form().Command4.caption(), "&Pause");
}

TEST_F(RemoteControlRun, ThePlayPauseKeyStartsPausesAndResumes) {
  desktop().playOrPause();
  EXPECT_EQ(shown().state, PlayState::Playing);
  desktop().playOrPause();
  EXPECT_EQ(shown().state, PlayState::Paused);
  desktop().playOrPause();
  EXPECT_EQ(shown().state, PlayState::Playing);
}

TEST_F(RemoteControlRun, StopTellsThatThereIsNoSong) {
  desktop().play();
  tick();
  desktop().stop();
  EXPECT_EQ(shown().state, PlayState::Stopped);
  EXPECT_EQ(shown().song, 0U);
  EXPECT_EQ(shown().path, "");
  EXPECT_EQ(machine.decks.audibleGraphs(), 0);
}

TEST_F(RemoteControlRun, NextStartsTheNextSongAsAnotherOne) {
  desktop().play();
  tick();
  const auto first = shown().song;
  desktop().next();
  EXPECT_EQ(playing(), "b.mp3");
  EXPECT_EQ(shown().title, "b");
  EXPECT_NE(shown().song, first);
  EXPECT_NEAR(shown().position, 0, 0.01);
}

TEST_F(RemoteControlRun, ASongThatFollowsItselfIsAnotherOne) {
  form().Option1.setValue(true);
  form().Check1.setValue(1);
  desktop().play();
  tick();
  const auto first = shown().song;
  machine.advance(31s);
  EXPECT_EQ(shown().path, "C:\\Music\\a.mp3");
  EXPECT_NE(shown().song, first);
}

TEST_F(RemoteControlRun, TheMixIsFollowedToTheNextSong) {
  desktop().play();
  machine.advance(21s);
  EXPECT_EQ(shown().title, "b");
  EXPECT_EQ(shown().state, PlayState::Playing);
}

TEST_F(RemoteControlRun, ASongThatEndedIsStopped) {
  form().Option1.setValue(true);
  desktop().play();
  machine.advance(31s);
  EXPECT_EQ(shown().state, PlayState::Stopped);
  EXPECT_EQ(shown().title, "a");
  desktop().playOrPause();
  EXPECT_EQ(shown().state, PlayState::Playing);
  EXPECT_NEAR(position(), 0, 0.01);
}

TEST_F(RemoteControlRun, AStartThatFailsLeavesTheNameOfWhatIsHeard) {
  machine.files.addFile("C:\\Music\\d.mp3", {.playable = false});
  form().Command5.userClick();
  form().Option1.setValue(true);
  desktop().play();
  machine.advance(1s);
  form().List1.userActivate(3);
  machine.advance(200ms);
  EXPECT_EQ(playing(), "d.mp3");
  EXPECT_EQ(shown().title, "a");
  machine.advance(10s);  // the old song has faded away
  EXPECT_EQ(shown().state, PlayState::Stopped);
  EXPECT_EQ(shown().song, 0U);
}

TEST_F(RemoteControlRun, ASeekGoesToTheFractionOfASecondAndIsTold) {
  desktop().play();
  tick();
  desktop().seekTo(12.5);
  EXPECT_NEAR(position(), 12.5, 0.001);
  EXPECT_NEAR(shown().position, 12.5, 0.001);
  EXPECT_EQ(mediaTrace(), "media.open | media.seeked 12");
  machine.advance(1s);
  EXPECT_EQ(mediaTrace(), "media.open | media.seeked 12");
}

TEST_F(RemoteControlRun, SeeksAreCountedFromWhereTheSongStandsNow) {
  desktop().play();
  tick();
  desktop().seekBy(5);
  desktop().seekBy(5);
  EXPECT_NEAR(position(), 10.1, 0.001);
  desktop().seekBy(-20);
  EXPECT_NEAR(position(), 0, 0.001);
}

TEST_F(RemoteControlRun, ASeekBehindTheEndIsTheNextSong) {
  desktop().play();
  tick();
  desktop().seekBy(40);
  EXPECT_EQ(shown().title, "b");
}

TEST_F(RemoteControlRun, APlaceOutsideTheSongIsNone) {
  desktop().play();
  machine.advance(2s);
  desktop().seekTo(-1);
  desktop().seekTo(31);
  EXPECT_NEAR(position(), 2, 0.001);
}

TEST_F(RemoteControlRun, WithoutASongThereIsNothingToSeekIn) {
  desktop().seekTo(3);
  desktop().seekBy(3);
  desktop().pause();
  desktop().stop();
  EXPECT_EQ(shown().state, PlayState::Stopped);
  EXPECT_EQ(mediaTrace(), "media.open");
}

TEST_F(RemoteControlRun, ASeekByTheSliderIsTold) {
  desktop().play();
  machine.advance(1s);
  form().HScroll1.userMove(15);
  tick();
  EXPECT_EQ(mediaTrace(), "media.open | media.seeked 15");
}

TEST_F(RemoteControlRun, ASeekWhilePausedStaysPaused) {
  desktop().play();
  tick();
  desktop().pause();
  desktop().seekTo(8);
  machine.advance(1s);
  EXPECT_EQ(shown().state, PlayState::Paused);
  EXPECT_NEAR(position(), 8, 0.001);
}

TEST_F(RemoteControlRun, RepeatingASongIsSingleWithLoopAndRepeatingTheListIsNot) {
  desktop().setRepeat(Repeat::Song);
  EXPECT_TRUE(form().Option1.value());
  EXPECT_EQ(form().Check1.value(), 1);
  EXPECT_EQ(shown().repeat, Repeat::Song);
  desktop().setRepeat(Repeat::List);
  EXPECT_TRUE(form().Option2.value());
  EXPECT_EQ(shown().repeat, Repeat::List);
  desktop().setRepeat(Repeat::Off);
  EXPECT_TRUE(form().Option2.value());
  EXPECT_EQ(form().Check1.value(), 0);
  EXPECT_EQ(shown().repeat, Repeat::Off);
}

TEST_F(RemoteControlRun, ShuffleIsRandomAndAutoNextWithoutIt) {
  desktop().setShuffle(true);
  EXPECT_TRUE(form().Option3.value());
  EXPECT_TRUE(shown().shuffle);
  desktop().setRepeat(Repeat::List);
  EXPECT_TRUE(form().Option3.value());
  desktop().setShuffle(false);
  EXPECT_TRUE(form().Option2.value());
  EXPECT_FALSE(shown().shuffle);
}

TEST_F(RemoteControlRun, ShuffleOffLeavesSingleAlone) {
  form().Option1.setValue(true);
  desktop().setShuffle(false);
  EXPECT_TRUE(form().Option1.value());
}

TEST_F(RemoteControlRun, RaiseBringsAHiddenWindowBack) {
  form().form.setVisible(false);
  machine.clearTrace();
  desktop().raise();
  EXPECT_TRUE(form().form.visible());
  EXPECT_NE(machine.trace({Door::Windows}).find("windows.forward Nerolith"), std::string::npos);
}

TEST_F(RemoteControlRun, RaiseBringsThePlaylistEditorWhileThatIsInTheWindowsPlace) {
  form().form.setVisible(false);
  program->editorForm().form_4.setVisible(true);
  machine.clearTrace();
  desktop().raise();
  EXPECT_FALSE(form().form.visible());
  EXPECT_EQ(machine.trace({Door::Windows}).find("windows.forward Nerolith |"), std::string::npos);
  EXPECT_NE(machine.trace({Door::Windows}).find("windows.forward"), std::string::npos);
}

TEST_F(RemoteControlRun, QuitClosesAsTheCloseButtonDoesAndEndsTheCommands) {
  desktop().quit();
  EXPECT_TRUE(machine.quitAsked());
  EXPECT_EQ(machine.media.commands(), nullptr);
  EXPECT_NE(machine.trace().find("settings.write Velmarion/Path/path=C:\\Music"),
            std::string::npos);
}

TEST_F(RemoteControlRun, AnOpenedFilePlaysInTheModeThatIsSet) {
  machine.files.addFile("D:\\other\\x, y.mp3", {.duration = 40});
  form().Option3.setValue(true);
  desktop().openFile("D:\\other\\x, y.mp3");
  EXPECT_EQ(shown().path, "D:\\other\\x, y.mp3");
  EXPECT_TRUE(form().Option3.value());
}

TEST_F(RemoteControlRun, NoFailureOfADeckLeavesACommand) {
  desktop().play();
  tick();
  for (std::uint64_t n = 1; n <= 6; ++n) {
    machine.failDoorCall(n);
    EXPECT_NO_THROW({
      desktop().seekTo(3);
      desktop().seekBy(1);
      desktop().pause();
      desktop().play();
      desktop().next();
    });
    machine.failDoorCall(0);
    machine.advance(1s);
  }
}

}  // namespace
}  // namespace nerolith::app
