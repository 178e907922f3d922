#include "player/next_track.h"

#include <gtest/gtest.h>

#include <set>

#include "player_rig.h"

namespace nerolith::player {
namespace {

TEST(NextInOrder, GoesOnByOneAndRoundOnlyWithLoop) {
  EXPECT_EQ(nextInOrder(0, 3, false), 1);
  EXPECT_EQ(nextInOrder(-1, 3, false), 0);
  EXPECT_EQ(nextInOrder(2, 3, true), 0);
  EXPECT_EQ(nextInOrder(2, 3, false), std::nullopt);
  EXPECT_EQ(nextInOrder(-1, 0, false), std::nullopt);
}

TEST(AutoNext, AtTheLastEntryStartsNothingWithoutLoop) {
  PlayerRig rig;
  rig.fillEqual(3, 60);
  rig.autoNext();
  rig.start(2);
  rig.machine.clearTrace();
  rig.ticks(800);
  EXPECT_EQ(rig.decksTrace(), "");
  EXPECT_EQ(rig.form.List1.listIndex(), 2);
  EXPECT_FALSE(rig.songs.listExhausted);
}

TEST(AutoNext, AtTheLastEntryGoesOnAtTheFirstWithLoop) {
  PlayerRig rig;
  rig.fillEqual(3, 60);
  rig.autoNext();
  rig.loop();
  rig.start(2);
  rig.ticks(501);
  EXPECT_EQ(rig.currentSong(), "a.mp3");
  EXPECT_EQ(rig.form.List1.listIndex(), 0);
  EXPECT_EQ(rig.form.List1.selectedCount(), 1);
}

TEST(AutoNext, SkipsNothingForBeingPlayed) {
  PlayerRig rig;
  rig.fillEqual(3, 60);
  rig.songs.setPlayed(1, true);
  rig.autoNext();
  rig.start(0);
  rig.player.speelvolgendeknop();
  EXPECT_EQ(rig.currentSong(), "b.mp3");
}

TEST(AutoNext, RunningOutAsksARunningRecordingToFadeOut) {
  PlayerRig rig;
  rig.fillEqual(2, 60);
  rig.autoNext();
  rig.start(1);
  rig.player.speelvolgendeknop();
  EXPECT_EQ(rig.recording.lastSongs, 0);
  rig.recording.writes = true;
  rig.player.speelvolgendeknop();
  EXPECT_EQ(rig.recording.lastSongs, 1);
}

TEST(AutoNext, OnAnEmptyListEndsQuietly) {
  for (const bool loop : {false, true}) {
    PlayerRig rig;
    if (loop) rig.loop();
    rig.autoNext();
    rig.machine.clearTrace();
    rig.player.speelvolgendeknop();
    EXPECT_EQ(rig.machine.trace(), "");
    EXPECT_TRUE(rig.form.Command3.enabled());
  }
}

TEST(Single, PlayNextStartsNothingWithoutLoop) {
  PlayerRig rig;
  rig.fillEqual(3, 60);
  rig.single();
  rig.start(1);
  rig.form.List1.setSelected(2, true);
  rig.machine.clearTrace();
  rig.player.speelvolgendeknop();
  EXPECT_EQ(rig.decksTrace(), "");
  EXPECT_EQ(rig.form.List1.selectedCount(), 2);
}

TEST(Single, PlayNextStartsTheSelectedSongAgainWithLoop) {
  PlayerRig rig;
  rig.fillEqual(3, 60);
  rig.single();
  rig.loop();
  rig.start(1);
  rig.ticks(1);
  rig.machine.clearTrace();
  rig.player.speelvolgendeknop();
  EXPECT_EQ(rig.decksTrace(), "B.render b.mp3 | B.volume 0 | B.run");
}

TEST(PlayNext, EndsAPauseAndTheExhaustedState) {
  PlayerRig rig;
  rig.fillEqual(3, 60);
  rig.autoNext();
  rig.start(0);
  rig.form.Command4.userClick();
  rig.songs.listExhausted = true;
  rig.form.Command3.userClick();
  EXPECT_EQ(rig.form.Command4.caption(), "&Pause");
  EXPECT_EQ(rig.player.state().paused, base::kFalse);
  EXPECT_FALSE(rig.songs.listExhausted);
  EXPECT_FALSE(rig.songs.played(0));
  EXPECT_EQ(rig.currentSong(), "b.mp3");
}

TEST(Random, PlaysEachSongOnceAndThenStops) {
  PlayerRig rig;
  rig.fillEqual(20, 60);
  rig.random();
  rig.player.speelvolgendeknop();
  std::multiset<std::string> played;
  std::string last;
  for (int i = 0; i < 1200 * 10; ++i) {
    rig.ticks(1);
    if (rig.songs.listExhausted && rig.machine.decks.audibleGraphs() == 0) break;
    if (rig.currentSong() != last) played.insert(last = rig.currentSong());
  }
  EXPECT_EQ(played.size(), 20U);
  EXPECT_EQ(std::set<std::string>(played.begin(), played.end()).size(), 20U);
  EXPECT_TRUE(rig.songs.listExhausted);
}

TEST(Random, RunningOutLetsTheSongPlayToItsEnd) {
  PlayerRig rig;
  rig.fillEqual(1, 60);
  rig.random();
  rig.recording.writes = true;
  rig.player.speelvolgendeknop();
  ASSERT_EQ(rig.form.HScroll1.max(), 50);
  rig.machine.clearTrace();
  rig.ticks(590);
  EXPECT_TRUE(rig.songs.listExhausted);
  EXPECT_EQ(rig.form.HScroll1.max(), 60);
  EXPECT_EQ(rig.form.HScroll1.value(), 59);
  EXPECT_EQ(rig.recording.lastSongs, 1);
  rig.ticks(100);
  EXPECT_EQ(rig.decksTrace(), "");
}

TEST(Random, RunningOutWithLoopClearsTheTagsAndGoesOn) {
  PlayerRig rig;
  rig.fillEqual(2, 60);
  rig.random();
  rig.loop();
  rig.player.speelvolgendeknop();
  rig.ticks(1700);
  EXPECT_FALSE(rig.songs.listExhausted);
  EXPECT_EQ(rig.machine.decks.audibleGraphs(), 1);
}

TEST(Random, OnAnEmptyListIsExhaustedEvenWithLoop) {
  PlayerRig rig;
  rig.random();
  rig.loop();
  rig.player.speelvolgendeknop();
  EXPECT_TRUE(rig.songs.listExhausted);
}

TEST(Random, LeavesOnlyItsChoiceSelected) {
  PlayerRig rig;
  rig.fillEqual(20, 60);
  rig.form.List1.selectAll();
  rig.random();
  rig.player.speelvolgendeknop();
  EXPECT_EQ(rig.form.List1.selectedCount(), 1);
  EXPECT_TRUE(rig.form.List1.selected(rig.form.List1.listIndex()));
}

TEST(Random, AsksForTheScanOnlyWithTheRuleOn) {
  PlayerRig rig;
  rig.fillEqual(5, 60);
  rig.random();
  rig.player.speelvolgendeknop();
  EXPECT_EQ(rig.scans, 0);
  rig.live.recentRule = base::kTrue;
  rig.player.speelvolgendeknop();
  EXPECT_EQ(rig.scans, 1);
}

TEST(Random, AFailingScanDoesNotStopTheMusic) {
  PlayerRig rig;
  rig.fillEqual(5, 60);
  rig.random();
  rig.live.recentRule = base::kTrue;
  rig.onScan = [] { throw base::Failure("the share is gone"); };
  rig.player.speelvolgendeknop();
  EXPECT_EQ(rig.machine.decks.audibleGraphs(), 1);
}

TEST(Random, NoMoreThanFiveOldSongsComeInARowWithTheRuleOn) {
  PlayerRig rig;
  rig.fillEqual(200, 60);
  rig.live.recentRule = base::kTrue;
  rig.onScan = [&] {
    rig.songs.setRecent(17, true);
    rig.songs.anyRecent = true;
  };
  rig.random();
  int inARow = 0;
  int recent = 0;
  for (int i = 0; i < 150; ++i) {
    rig.player.speelvolgendeknop();
    const bool isRecent = rig.form.List1.listIndex() == 17;
    inARow = isRecent ? 0 : inARow + 1;
    recent += isRecent ? 1 : 0;
    ASSERT_LE(inARow, 5);
  }
  EXPECT_GE(recent, 25);
}

TEST(Random, TheSameListGivesTheSameSongsInEveryRun) {
  std::vector<std::string> runs[2];
  for (auto& run : runs) {
    PlayerRig rig;
    rig.fillEqual(50, 60);
    rig.random();
    rig.player.random().discard(131072);
    for (int i = 0; i < 50; ++i) {
      rig.player.speelvolgendeknop();
      run.push_back(rig.currentSong());
    }
  }
  EXPECT_EQ(runs[0], runs[1]);
}

TEST(Random, ADrawBeyondThePlayedTagsEndsQuietly) {
  PlayerRig rig;
  std::vector<std::string> names(100000, "missing.mp3");
  rig.songs.refill(std::move(names));
  rig.random();
  rig.machine.clearTrace();
  rig.player.speelvolgendeknop();
  EXPECT_TRUE(rig.form.Command3.enabled());
}

}  // namespace
}  // namespace nerolith::player
