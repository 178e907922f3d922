#include "player/transport.h"

#include <gtest/gtest.h>

#include "player_rig.h"

namespace nerolith::player {
namespace {

TEST(Transport, TheFirstSongPlaysOnDeckA) {
  PlayerRig rig;
  rig.fillEqual(3, 180);
  rig.machine.clearTrace();
  rig.start(1);
  EXPECT_EQ(rig.decksTrace(), "A.render b.mp3 | A.volume 0 | A.run");
  EXPECT_TRUE(rig.songs.played(1));
  EXPECT_TRUE(rig.form.List1.selected(1));
  EXPECT_EQ(rig.songs.playingPosition(), 1);
  EXPECT_EQ(rig.form.Label9.caption(), "b");
  EXPECT_EQ(rig.form.Text1.text(), "b.mp3");
  EXPECT_EQ(rig.player.state().songPath, "C:\\m\\b.mp3");
}

TEST(Transport, AStartedSongLightsTheLampAndFreesPlayNext) {
  PlayerRig rig;
  rig.fillEqual(3, 180);
  rig.start(0);
  EXPECT_TRUE(rig.form.Command3.enabled());
  EXPECT_EQ(rig.form.Label10[0].backColour(), controls::kGreen);
  EXPECT_EQ(rig.form.Label10[2].backColour(), controls::kGrey);
  EXPECT_EQ(rig.player.state().manualStartFirst, base::kFalse);
  EXPECT_EQ(rig.player.state().manualStartSecond, base::kFalse);
}

TEST(Transport, TheSecondSongPlaysOnDeckBWhileTheFirstFades) {
  PlayerRig rig;
  rig.fillEqual(3, 180);
  rig.start(0);
  rig.ticks(10);
  rig.machine.clearTrace();
  rig.start(1);
  rig.ticks(1);
  EXPECT_EQ(rig.decksTrace(), "B.render b.mp3 | B.volume 0 | B.run | A.volume -98");
}

TEST(Transport, AThirdSongReleasesTheDeckThatStillFades) {
  PlayerRig rig;
  rig.fillEqual(3, 180);
  rig.start(0);
  rig.ticks(10);
  rig.start(1);
  rig.ticks(10);
  rig.machine.clearTrace();
  rig.start(2);
  EXPECT_EQ(rig.decksTrace(),
            "A.stop | decks.create | A.release | A.render c.mp3 | A.volume 0 | A.run");
  EXPECT_EQ(rig.player.decks().b.fadeOut, base::kTrue);
  EXPECT_EQ(rig.player.decks().a.fadeOut, base::kFalse);
}

TEST(Transport, NothingStartsWhileAStartIsUnderWay) {
  PlayerRig rig;
  rig.fillEqual(3, 180);
  rig.form.Command3.setEnabled(false);
  rig.machine.clearTrace();
  rig.start(1);
  EXPECT_EQ(rig.decksTrace(), "");
  EXPECT_FALSE(rig.songs.played(1));
}

TEST(Transport, APlaylistEntryIsAPathOfItsOwn) {
  PlayerRig rig;
  rig.machine.files.addFile("C:\\far\\away.b\\no ending", {.duration = 60});
  rig.songs.setMode(library::ListMode::Playlist);
  rig.songs.refill({"C:\\far\\away.b\\no ending"});
  rig.start(0);
  EXPECT_EQ(rig.currentSong(), "no ending");
  EXPECT_EQ(rig.player.state().songPath, "C:\\far\\away.b\\no ending");
}

TEST(Transport, TheSameTextIsAPathInAPlaylistAndANameInAFolder) {
  PlayerRig rig;
  rig.single();
  rig.machine.files.addFile("C:\\m\\same.mp3", {.duration = 60});
  rig.songs.setMode(library::ListMode::Playlist);
  rig.songs.refill({"same.mp3"});
  rig.start(0);
  EXPECT_EQ(rig.player.state().songPath, "same.mp3");
  rig.songs.setMode(library::ListMode::Folder);
  rig.songs.refill({"same.mp3"});
  rig.start(0);
  EXPECT_EQ(rig.player.state().songPath, "C:\\m\\same.mp3");
  EXPECT_EQ(rig.currentSong(), "same.mp3");
}

TEST(Transport, AStartAfterRandomRanOutClearsThePlayedTags) {
  PlayerRig rig;
  rig.fillEqual(3, 180);
  for (int i = 0; i < 3; ++i) rig.songs.setPlayed(i, true);
  rig.songs.listExhausted = true;
  rig.start(1);
  EXPECT_FALSE(rig.songs.listExhausted);
  EXPECT_FALSE(rig.songs.played(0));
  EXPECT_TRUE(rig.songs.played(1));
}

TEST(Transport, TheCorrectionGetsItsHeadRoomAtEveryStart) {
  PlayerRig rig;
  rig.fillEqual(3, 180);
  rig.recording.adjust = true;
  rig.start(0);
  EXPECT_EQ(rig.graph('A').level(), -500);
  rig.recording.adjust = false;
  rig.start(1);
  EXPECT_EQ(rig.graph('B').level(), 0);
}

TEST(Transport, ASongShorterThanTheMixLeadSwitchesToSingle) {
  PlayerRig rig;
  rig.fill({9.9, 180});
  rig.random();
  rig.start(0);
  EXPECT_TRUE(rig.form.Option1.value());
  EXPECT_EQ(rig.live.modeCode, "1");
  EXPECT_EQ(rig.form.HScroll1.max(), 10);
}

TEST(Transport, ASongAsLongAsTheMixLeadKeepsTheMode) {
  PlayerRig rig;
  rig.fill({10, 180});
  rig.autoNext();
  rig.start(0);
  EXPECT_TRUE(rig.form.Option2.value());
  EXPECT_EQ(rig.form.HScroll1.max(), 0);
}

TEST(Transport, TheSliderCoversTheWholeSongInSingleOnly) {
  PlayerRig rig;
  rig.fillEqual(2, 185.5);
  rig.single();
  rig.start(0);
  EXPECT_EQ(rig.form.HScroll1.max(), 186);
  EXPECT_EQ(rig.form.HScroll1.largeChange(), 8);
  rig.autoNext();
  rig.start(1);
  EXPECT_EQ(rig.form.HScroll1.max(), 176);
  EXPECT_EQ(rig.form.HScroll1.smallChange(), 8);
}

TEST(Transport, ASongBeyondTheSlidersNumbersPlaysAllTheSame) {
  PlayerRig rig;
  rig.fill({40000});
  rig.single();
  rig.start(0);
  EXPECT_EQ(rig.form.HScroll1.max(), 32767);
  EXPECT_TRUE(rig.graph('A').running());
}

TEST(Transport, AShorterRangeMovesTheThumbWithoutASeek) {
  PlayerRig rig;
  rig.fill({400, 60});
  rig.single();
  rig.start(0);
  rig.ticks(3000);
  ASSERT_EQ(rig.form.HScroll1.value(), 300);
  rig.machine.clearTrace();
  rig.start(1);
  EXPECT_EQ(rig.decksTrace(), "B.render b.mp3 | B.volume 0 | B.run");
  EXPECT_EQ(rig.form.HScroll1.value(), 1);
}

TEST(Transport, PlayWithoutACurrentPositionDoesNothing) {
  PlayerRig rig;
  rig.fillEqual(3, 180);
  rig.form.List1.setListIndex(-1);
  rig.machine.clearTrace();
  rig.form.Command1.userClick();
  EXPECT_EQ(rig.decksTrace(), "");
  EXPECT_EQ(rig.player.state().playRetryCount, 0);
}

TEST(Transport, PlayOnAnEmptyDeckEndsQuietly) {
  PlayerRig rig;
  rig.fillEqual(3, 180);
  rig.form.Command1.userClick();
  EXPECT_EQ(rig.machine.trace({Door::Dialogs}), "");
  EXPECT_EQ(rig.player.state().playRetryCount, 0);
  EXPECT_TRUE(rig.form.Command3.enabled());
}

TEST(Transport, PauseFreezesAndResumeGoesOnWhereItStood) {
  PlayerRig rig;
  rig.fillEqual(3, 180);
  rig.start(0);
  rig.ticks(50);
  rig.form.Command4.userClick();
  EXPECT_EQ(rig.form.Command4.caption(), "&Resume");
  EXPECT_EQ(rig.form.Label10[2].backColour(), controls::kYellow);
  EXPECT_EQ(rig.player.state().paused, base::kTrue);
  rig.ticks(100);
  EXPECT_DOUBLE_EQ(rig.graph('A').position(), 5.0);
  rig.form.Command4.userClick();
  EXPECT_EQ(rig.form.Command4.caption(), "&Pause");
  EXPECT_EQ(rig.form.Label10[2].backColour(), controls::kGrey);
  rig.ticks(10);
  EXPECT_DOUBLE_EQ(rig.graph('A').position(), 6.0);
}

TEST(Transport, PlayResumesToo) {
  PlayerRig rig;
  rig.fillEqual(3, 180);
  rig.start(0);
  rig.form.Command4.userClick();
  rig.form.Command1.userClick();
  EXPECT_TRUE(rig.graph('A').running());
  EXPECT_EQ(rig.player.state().paused, base::kFalse);
  EXPECT_EQ(rig.form.Command4.caption(), "&Pause");
}

TEST(Transport, PauseWithoutASongChangesNothing) {
  PlayerRig rig;
  rig.form.Command4.userClick();
  EXPECT_EQ(rig.player.state().paused, base::kFalse);
  EXPECT_EQ(rig.form.Command4.caption(), "&Pause");
}

TEST(Transport, StopReleasesBothDecksAndBlocksTheMix) {
  PlayerRig rig;
  rig.fillEqual(3, 180);
  rig.start(0);
  rig.start(1);
  rig.form.Command2.userClick();
  EXPECT_EQ(rig.machine.decks.audibleGraphs(), 0);
  EXPECT_FALSE(rig.graph('A').rendered());
  EXPECT_FALSE(rig.graph('B').rendered());
  EXPECT_EQ(rig.player.state().manualStartFirst, base::kTrue);
  EXPECT_EQ(rig.form.Label10[0].backColour(), controls::kGrey);
  EXPECT_EQ(rig.songs.playingPosition(), -1);
  rig.ticks(5);
  EXPECT_EQ(rig.form.Label1.caption(), "00:00");
}

TEST(Transport, StopWhilePausedRestoresTheCaption) {
  PlayerRig rig;
  rig.fillEqual(3, 180);
  rig.start(0);
  rig.form.Command4.userClick();
  rig.form.Command2.userClick();
  EXPECT_EQ(rig.form.Command4.caption(), "&Pause");
  EXPECT_EQ(rig.player.state().paused, base::kFalse);
  EXPECT_EQ(rig.form.Label10[2].backColour(), controls::kGrey);
}

TEST(Transport, StopEndsARunningRecordingOnly) {
  PlayerRig rig;
  rig.form.Command2.userClick();
  EXPECT_EQ(rig.recording.stopped, 0);
  rig.recording.writes = true;
  rig.form.Command2.userClick();
  EXPECT_EQ(rig.recording.stopped, 1);
}

TEST(Transport, ADraggedThumbSeeksWhenItIsReleased) {
  PlayerRig rig;
  rig.fillEqual(3, 180);
  rig.autoNext();
  rig.start(0);
  rig.ticks(20);
  rig.machine.clearTrace();
  rig.form.HScroll1.userDrag(90);
  rig.ticks(10);
  EXPECT_EQ(rig.form.HScroll1.value(), 90);
  EXPECT_EQ(rig.decksTrace(), "");
  rig.form.HScroll1.userRelease();
  EXPECT_EQ(rig.decksTrace(), "A.seek 90");
  rig.ticks(10);
  EXPECT_EQ(rig.form.HScroll1.value(), 91);
}

TEST(Transport, ASongChangeLeavesADraggedThumbInTheUsersHand) {
  PlayerRig rig;
  rig.fillEqual(3, 60);
  rig.autoNext();
  rig.start(0);
  rig.ticks(490);
  rig.form.HScroll1.userDrag(20);
  rig.ticks(20);
  ASSERT_EQ(rig.currentSong(), "b.mp3");
  EXPECT_EQ(rig.form.HScroll1.value(), 20);
  rig.form.HScroll1.userRelease();
  EXPECT_DOUBLE_EQ(rig.graph('B').position(), 20.0);
}

TEST(Transport, ANewSongBringsTheThumbBackToTheStart) {
  PlayerRig rig;
  rig.fillEqual(3, 60);
  rig.start(0);
  rig.ticks(300);
  rig.start(1);
  EXPECT_EQ(rig.form.HScroll1.value(), 1);
}

TEST(Transport, NoSeekWhileAMixLatchIsSet) {
  PlayerRig rig;
  rig.fillEqual(3, 180);
  rig.start(0);
  rig.machine.clearTrace();
  rig.form.HScroll1.userMove(90);
  EXPECT_EQ(rig.decksTrace(), "");
}

TEST(Transport, ASeekThatFailsIsIgnored) {
  PlayerRig rig;
  rig.ticks(1);
  rig.form.HScroll1.setMax(100);
  rig.form.HScroll1.userMove(50);
  EXPECT_EQ(rig.player.state().sliderDragging, base::kFalse);
}

TEST(Transport, TheThumbAtTheRoundedEndSeeksToTheEnd) {
  PlayerRig rig;
  rig.fill({100.6});
  rig.single();
  rig.start(0);
  rig.ticks(10);
  ASSERT_EQ(rig.form.HScroll1.max(), 101);
  rig.form.HScroll1.userMove(101);
  EXPECT_DOUBLE_EQ(rig.graph('B').position() + rig.graph('A').position(), 100.6);
}

}  // namespace
}  // namespace nerolith::player
