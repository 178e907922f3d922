#include "player/playback_timer.h"

#include <gtest/gtest.h>

#include "player_rig.h"

namespace nerolith::player {
namespace {

/// Ticks from the start of the second song until the first one's deck is released.
int ticksOfFade(PlayerRig& rig) {
  rig.start(1);
  int ticks = 0;
  while (rig.graph('A').rendered() && ticks < 1000) {
    rig.ticks(1);
    ++ticks;
  }
  return ticks;
}

TEST(PlaybackTimer, TheOldSongIsReleasedAtTheFiftySecondTickWithTheDefaults) {
  PlayerRig rig;
  rig.fillEqual(2, 180);
  rig.start(0);
  EXPECT_EQ(ticksOfFade(rig), 52);
  EXPECT_EQ(rig.decksTrace().find("A.volume -5194"), std::string::npos);
  EXPECT_NE(rig.decksTrace().find("A.volume -5096 | A.stop | decks.create | A.release"),
            std::string::npos);
}

TEST(PlaybackTimer, TheOldSongIsReleasedAtTheFortySixthTickFromTheCorrectedStart) {
  PlayerRig rig;
  rig.recording.adjust = true;
  rig.fillEqual(2, 180);
  rig.start(0);
  EXPECT_EQ(ticksOfFade(rig), 46);
}

TEST(PlaybackTimer, TheNextSongStartsTheMixLeadBeforeTheEnd) {
  PlayerRig rig;
  rig.fillEqual(3, 60);
  rig.autoNext();
  rig.start(0);
  rig.machine.clearTrace();
  rig.ticks(499);
  EXPECT_EQ(rig.decksTrace(), "");
  rig.ticks(2);
  EXPECT_EQ(rig.decksTrace(), "B.render b.mp3 | B.volume 0 | B.run | A.volume -98");
  EXPECT_EQ(rig.currentSong(), "b.mp3");
}

TEST(PlaybackTimer, AnOutputThatDelaysItsSoundIsAllowedFor) {
  PlayerRig rig;
  rig.fillEqual(3, 60);
  rig.autoNext();
  rig.start(0);
  rig.machine.decks.setStartDelay(0.25);
  rig.ticks(497);
  EXPECT_EQ(rig.currentSong(), "a.mp3");
  rig.ticks(1);
  EXPECT_EQ(rig.currentSong(), "b.mp3");
}

TEST(PlaybackTimer, TheOldSongIsGoneWellBeforeItsEnd) {
  PlayerRig rig;
  rig.fillEqual(3, 60);
  rig.autoNext();
  rig.start(0);
  rig.ticks(500 + 51);
  EXPECT_TRUE(rig.graph('A').rendered());
  rig.ticks(1);
  EXPECT_FALSE(rig.graph('A').rendered());
  EXPECT_LT(rig.machine.timeline.now(), 56s);
}

TEST(PlaybackTimer, AFadeLongerThanTheMixLeadOutlivesItsSong) {
  PlayerRig rig(20);
  rig.live.mixLead = 5;
  rig.fillEqual(3, 60);
  rig.autoNext();
  rig.start(0);
  rig.ticks(700);
  EXPECT_TRUE(rig.graph('A').rendered());
  EXPECT_FALSE(rig.graph('A').audible());
  rig.ticks(60);
  EXPECT_FALSE(rig.graph('A').rendered());
}

TEST(PlaybackTimer, TheTriggerFiresOncePerSong) {
  PlayerRig rig;
  rig.fillEqual(30, 60);
  rig.autoNext();
  rig.start(0);
  rig.ticks(2600);
  EXPECT_EQ(rig.form.List1.listIndex(), 5);
  EXPECT_EQ(rig.currentSong(), "f.mp3");
}

TEST(PlaybackTimer, SingleWithLoopMixesIntoItselfAtTheEnd) {
  PlayerRig rig;
  rig.fillEqual(3, 60);
  rig.single();
  rig.loop();
  rig.start(1);
  rig.ticks(1);
  rig.machine.clearTrace();
  rig.ticks(598);
  EXPECT_EQ(rig.decksTrace(), "");
  rig.ticks(1);
  EXPECT_EQ(rig.decksTrace(), "B.render b.mp3 | B.volume 0 | B.run");
  EXPECT_EQ(rig.player.decks().a.fadeOut, base::kTrue);
}

TEST(PlaybackTimer, SingleWithoutLoopEndsWithItsSong) {
  PlayerRig rig;
  rig.fillEqual(3, 60);
  rig.single();
  rig.start(1);
  rig.machine.clearTrace();
  rig.ticks(2000);
  EXPECT_EQ(rig.decksTrace(), "");
  EXPECT_TRUE(rig.graph('A').rendered());
  EXPECT_EQ(rig.machine.decks.audibleGraphs(), 0);
}

TEST(PlaybackTimer, NothingIsMixedAfterStop) {
  PlayerRig rig;
  rig.fillEqual(3, 60);
  rig.autoNext();
  rig.start(0);
  rig.ticks(480);
  rig.player.transport().stop();
  rig.machine.clearTrace();
  rig.ticks(1000);
  EXPECT_EQ(rig.decksTrace(), "");
}

TEST(PlaybackTimer, NoMixIsTriggeredOnceTheListIsExhausted) {
  PlayerRig rig;
  rig.fillEqual(2, 60);
  rig.autoNext();
  rig.start(0);
  rig.songs.listExhausted = true;
  rig.machine.clearTrace();
  rig.ticks(700);
  EXPECT_EQ(rig.decksTrace(), "");
}

TEST(PlaybackTimer, ATriggerTakesUpAChangedFadeLength) {
  PlayerRig rig;
  rig.fillEqual(2, 60);
  rig.autoNext();
  rig.start(0);
  rig.live.fadeLength = 2;
  rig.ticks(520);
  EXPECT_FLOAT_EQ(rig.player.state().fadeSteps, 2);
  rig.ticks(3);
  EXPECT_FALSE(rig.graph('A').rendered());
}

TEST(PlaybackTimer, ATriggerTakesUpTheFadeLengthEvenWhenNothingFollows) {
  PlayerRig rig;
  rig.fillEqual(1, 60);
  rig.autoNext();
  rig.start(0);
  rig.live.fadeLength = 2;
  rig.ticks(490);
  EXPECT_FLOAT_EQ(rig.player.state().fadeSteps, 5);
  rig.ticks(15);
  EXPECT_FLOAT_EQ(rig.player.state().fadeSteps, 2);
}

TEST(PlaybackTimer, TheSongsRunOutOnce) {
  PlayerRig rig;
  rig.fillEqual(1, 60);
  rig.autoNext();
  rig.recording.writes = true;
  rig.start(0);
  rig.ticks(900);
  EXPECT_EQ(rig.recording.lastSongs, 1);
}

TEST(PlaybackTimer, AModeChosenBehindTheMixPointLetsTheSongPlayOut) {
  PlayerRig rig;
  rig.fillEqual(2, 60);
  rig.single();
  rig.start(0);
  rig.ticks(550);
  rig.autoNext();
  rig.machine.clearTrace();
  rig.ticks(200);
  EXPECT_EQ(rig.decksTrace(), "");
}

TEST(PlaybackTimer, TheTimeCountsToTheSongsEndInTheMixingModesToo) {
  PlayerRig rig;
  rig.fillEqual(2, 180);
  rig.autoNext();
  rig.start(0);
  rig.ticks(301);
  EXPECT_EQ(rig.form.HScroll1.value(), 30);
  EXPECT_EQ(rig.form.Label1.caption(), "02:30");
  rig.live.timeInverted = base::kTrue;
  rig.ticks(1);
  EXPECT_EQ(rig.form.Label1.caption(), "00:30");
}

TEST(PlaybackTimer, TheThumbStaysAtTheMixPoint) {
  PlayerRig rig;
  rig.fillEqual(1, 60);
  rig.autoNext();
  rig.start(0);
  rig.ticks(590);
  EXPECT_EQ(rig.form.HScroll1.value(), 50);
  EXPECT_EQ(rig.player.state().sliderIdle, base::kTrue);
}

TEST(PlaybackTimer, ATimeOfNothingIsShownAsZeroes) {
  PlayerRig rig;
  rig.live.timeInverted = base::kTrue;
  rig.form.Label1.setCaption("");
  rig.ticks(1);
  EXPECT_EQ(rig.form.Label1.caption(), "00:00");
}

TEST(PlaybackTimer, CountsFollowWithinOneTick) {
  PlayerRig rig;
  rig.fillEqual(12, 180);
  rig.form.List1.selectAll();
  rig.ticks(1);
  EXPECT_EQ(rig.form.Label2.caption(), "12");
  EXPECT_EQ(rig.form.Label3.caption(), "12");
  rig.form.List1.removeItem(3);
  rig.ticks(1);
  EXPECT_EQ(rig.form.Label2.caption(), "11");
  EXPECT_EQ(rig.form.Label3.caption(), "11");
}

TEST(PlaybackTimer, LampsShowTheModeAndTheLoop) {
  PlayerRig rig;
  rig.random();
  rig.loop();
  rig.ticks(1);
  EXPECT_EQ(rig.form.Label6[0].backColour(), controls::kGrey);
  EXPECT_EQ(rig.form.Label6[1].backColour(), controls::kGrey);
  EXPECT_EQ(rig.form.Label6[2].backColour(), controls::kRed);
  EXPECT_EQ(rig.form.Label6[3].backColour(), controls::kRed);
}

TEST(PlaybackTimer, AnotherPositionDisablesThePlaytimeLabelOnce) {
  PlayerRig rig;
  rig.fillEqual(3, 180);
  rig.ticks(1);
  rig.form.List1.setListIndex(2);
  rig.ticks(1);
  EXPECT_FALSE(rig.form.Label4.enabled());
  rig.form.Label4.setEnabled(true);
  rig.ticks(1);
  EXPECT_TRUE(rig.form.Label4.enabled());
}

TEST(PlaybackTimer, ThePlaytimeLabelStaysWhileItIsBeingCounted) {
  PlayerRig rig;
  rig.fillEqual(3, 180);
  rig.ticks(1);
  rig.form.Label4.setEnabled(true);
  rig.songs.held = true;
  rig.form.List1.setListIndex(2);
  rig.ticks(1);
  EXPECT_TRUE(rig.form.Label4.enabled());
}

TEST(PlaybackTimer, TheRecordingSectionHasItsStepOnEveryTick) {
  PlayerRig rig;
  rig.ticks(7);
  EXPECT_EQ(rig.recording.placed, 7);
  EXPECT_EQ(rig.recording.corrected, 7);
}

TEST(PlaybackTimer, TheCorrectionComesBeforeTheFadeAndTheFadeBeforeTheMix) {
  PlayerRig rig;
  rig.fillEqual(3, 60);
  rig.autoNext();
  rig.start(0);
  rig.ticks(1);
  rig.player.decks().b.render("C:\\m\\c.mp3");
  rig.player.decks().b.fadeOut = base::kTrue;
  rig.player.decks().a.seek(50);
  rig.recording.onCorrection = [&] { rig.player.decks().a.setVolume(-7); };
  rig.machine.clearTrace();
  rig.ticks(1);
  EXPECT_EQ(rig.decksTrace(),
            "A.volume -7 | B.volume -98 | B.stop | decks.create | B.release | B.render b.mp3 | "
            "B.volume 0 | B.run");
}

TEST(PlaybackTimer, AFailingCorrectionHoldsNothingUp) {
  PlayerRig rig;
  rig.fillEqual(3, 60);
  rig.autoNext();
  rig.recording.onCorrection = [] { throw base::Failure("no sound is captured"); };
  rig.start(0);
  rig.ticks(560);
  EXPECT_EQ(rig.currentSong(), "b.mp3");
  EXPECT_FALSE(rig.graph('A').rendered());
}

TEST(PlaybackTimer, AFadeOnAnEmptyDeckIsGivenUp) {
  PlayerRig rig;
  rig.player.decks().b.fadeOut = base::kTrue;
  rig.ticks(1);
  EXPECT_EQ(rig.player.decks().b.fadeOut, base::kFalse);
}

TEST(PlaybackTimer, BothDecksMayFade) {
  PlayerRig rig;
  rig.fillEqual(3, 180);
  rig.start(0);
  rig.start(1);
  rig.player.decks().b.fadeOut = base::kTrue;
  rig.machine.clearTrace();
  rig.ticks(1);
  EXPECT_EQ(rig.decksTrace(), "A.volume -98 | B.volume -98");
}

}  // namespace
}  // namespace nerolith::player
