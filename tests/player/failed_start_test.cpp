#include <gtest/gtest.h>

#include "player_rig.h"

namespace nerolith::player {
namespace {

constexpr const char* kMessage = "dialogs.message Error playing selected file";

int renders(const PlayerRig& rig) {
  const std::string trace = rig.decksTrace();
  int count = 0;
  for (auto at = trace.find("render"); at != trace.npos; at = trace.find("render", at + 1)) ++count;
  return count;
}

TEST(FailedStart, InSingleModeFreesPlayNextAndStopsThere) {
  PlayerRig rig;
  rig.fill({0, 180});
  rig.single();
  rig.loop();
  rig.start(0);
  EXPECT_TRUE(rig.form.Command3.enabled());
  EXPECT_EQ(rig.player.state().playRetryCount, 1);
  EXPECT_EQ(renders(rig), 1);
}

TEST(FailedStart, InAutoNextGoesOnToTheNextThatPlays) {
  PlayerRig rig;
  rig.fill({180, 0, 0, 180});
  rig.autoNext();
  rig.start(0);
  rig.ticks(10);
  rig.player.speelvolgendeknop();
  rig.settle();
  EXPECT_EQ(rig.currentSong(), "d.mp3");
  EXPECT_EQ(rig.player.state().playRetryCount, 0);
  EXPECT_TRUE(rig.form.Command3.enabled());
  EXPECT_EQ(rig.songs.playingPosition(), 3);
  EXPECT_EQ(rig.machine.trace({Door::Dialogs}), "");
}

TEST(FailedStart, ADeckThatCannotRunGoesOnToo) {
  PlayerRig rig;
  rig.fill({180, 180, 180});
  rig.machine.files.addFile("C:\\m\\b.mp3", {.duration = 180, .runnable = false});
  rig.autoNext();
  rig.start(0);
  rig.start(1);
  rig.settle();
  EXPECT_EQ(rig.currentSong(), "c.mp3");
  EXPECT_EQ(rig.songs.playingPosition(), 2);
  rig.ticks(60);
  EXPECT_EQ(rig.machine.decks.audibleGraphs(), 1);
}

TEST(FailedStart, TwentyFourInARowAreSilentAndTheTwentyFifthIsReportedOnce) {
  PlayerRig rig;
  rig.fillEqual(24, 0);
  rig.autoNext();
  rig.start(0);
  rig.settle();
  EXPECT_EQ(rig.player.state().playRetryCount, 24);
  EXPECT_EQ(rig.machine.trace({Door::Dialogs}), "");

  rig.machine.dialogs.answer(Answer::Ok);
  rig.start(0);
  rig.settle();
  EXPECT_EQ(rig.machine.trace({Door::Dialogs}), kMessage);
  EXPECT_EQ(rig.machine.dialogs.lastMessage().icon, platform::MessageIcon::Critical);
  EXPECT_EQ(rig.player.state().playRetryCount, 0);
  EXPECT_TRUE(rig.form.Command3.enabled());
}

TEST(FailedStart, AFolderOfBrokenFilesIsReportedOnceInAutoNext) {
  PlayerRig rig;
  rig.fillEqual(400, 0);
  rig.autoNext();
  rig.machine.dialogs.answer(Answer::Ok);
  rig.start(0);
  rig.settle();
  EXPECT_EQ(renders(rig), 25);
  EXPECT_EQ(rig.machine.trace({Door::Dialogs}), kMessage);
  rig.ticks(600);
  EXPECT_EQ(renders(rig), 25);
}

TEST(FailedStart, AFolderOfBrokenFilesIsReportedOnceInRandom) {
  PlayerRig rig;
  rig.fillEqual(400, 0);
  rig.random();
  rig.machine.dialogs.answer(Answer::Ok);
  rig.player.speelvolgendeknop();
  rig.settle();
  EXPECT_EQ(renders(rig), 25);
  EXPECT_EQ(rig.machine.trace({Door::Dialogs}), kMessage);
  EXPECT_TRUE(rig.form.Command3.enabled());
}

TEST(FailedStart, ASmallLoopOfBrokenFilesEndsToo) {
  for (const bool random : {false, true}) {
    PlayerRig rig;
    rig.fillEqual(2, 0);
    rig.loop();
    random ? rig.random() : rig.autoNext();
    rig.machine.dialogs.answer(Answer::Ok);
    rig.player.speelvolgendeknop();
    rig.settle();
    EXPECT_EQ(renders(rig), 25);
    EXPECT_EQ(rig.machine.trace({Door::Dialogs}), kMessage);
  }
}

TEST(FailedStart, NothingStartsWhileItsMessageIsOpen) {
  PlayerRig rig;
  rig.fillEqual(25, 0);
  rig.autoNext();
  rig.machine.dialogs.answer(Answer::Ok, 30s);
  rig.start(0);
  while (renders(rig) < 25) rig.machine.advance(0ms);
  rig.machine.timeline.post([&] { rig.player.speelvolgendeknop(); });
  rig.settle();
  EXPECT_EQ(renders(rig), 25);
  EXPECT_TRUE(rig.form.Command3.enabled());
  EXPECT_EQ(rig.player.state().playRetryCount, 0);
}

TEST(FailedStart, TheClockAndTheFadeGoOnWhileItsMessageIsOpen) {
  PlayerRig rig;
  std::vector<double> lengths(26, 0);
  lengths[0] = 60;
  rig.fill(lengths);
  rig.autoNext();
  rig.start(0);
  rig.machine.dialogs.answer(Answer::Ok, 3s);
  int ticksMeanwhile = 0;
  const auto counted = rig.form.Timer1.tick.subscribe([&] {
    const bool open = rig.machine.dialogs.unusedAnswers() == 0 && !rig.form.Command3.enabled();
    ticksMeanwhile += open ? 1 : 0;
  });
  rig.machine.advance(55s);
  EXPECT_GE(ticksMeanwhile, 29);
  EXPECT_LE(ticksMeanwhile, 31);
}

TEST(FailedStart, TheWindowHasItsTurnBetweenTwoAttempts) {
  PlayerRig rig;
  rig.fill({0, 0, 180});
  rig.autoNext();
  rig.start(0);
  int rendersBefore = 0;
  rig.machine.timeline.post([&] { rendersBefore = renders(rig); });
  rig.settle();
  EXPECT_EQ(rendersBefore, 2);
  EXPECT_EQ(rig.currentSong(), "c.mp3");
}

TEST(FailedStart, ASongStartedByHandIsNotOverruledByTheAttemptBefore) {
  PlayerRig rig;
  rig.fill({0, 180, 180});
  rig.autoNext();
  rig.start(0);
  rig.start(2);
  rig.settle();
  EXPECT_EQ(rig.currentSong(), "c.mp3");
  EXPECT_EQ(renders(rig), 2);
}

TEST(FailedStart, AStopEndsTheAttempts) {
  PlayerRig rig;
  rig.fill({0, 180});
  rig.autoNext();
  rig.start(0);
  rig.form.Command2.userClick();
  rig.settle();
  EXPECT_EQ(renders(rig), 1);
  EXPECT_EQ(rig.machine.decks.audibleGraphs(), 0);
}

TEST(FailedStart, ASongThatPlaysClearsTheCount) {
  PlayerRig rig;
  rig.fill({0, 180});
  rig.single();
  rig.start(0);
  rig.start(0);
  ASSERT_EQ(rig.player.state().playRetryCount, 2);
  rig.start(1);
  EXPECT_EQ(rig.player.state().playRetryCount, 0);
}

TEST(FailedStart, APositionBeyondThePlayedTagsIsOne) {
  PlayerRig rig;
  rig.fillEqual(10002, 180);
  rig.single();
  rig.start(10000);
  EXPECT_EQ(rig.player.state().playRetryCount, 0);
  EXPECT_EQ(rig.songs.playingPosition(), 10000);
  rig.start(10001);
  EXPECT_EQ(rig.player.state().playRetryCount, 1);
  EXPECT_EQ(rig.songs.playingPosition(), 10000);
  EXPECT_TRUE(rig.form.Command3.enabled());
}

TEST(FailedStart, NoCurrentPositionIsOne) {
  PlayerRig rig;
  rig.fillEqual(3, 180);
  rig.autoNext();
  rig.start(-1);
  rig.settle();
  EXPECT_EQ(rig.currentSong(), "a.mp3");
}

TEST(ThirdBranch, WithNeitherDeckCurrentTheStartCountsAsFailed) {
  PlayerRig rig;
  rig.fillEqual(3, 180);
  rig.single();
  rig.player.decks().currentDeckIsA = 1;
  rig.form.Command1.userClick();
  EXPECT_EQ(rig.player.state().playRetryCount, 1);
  EXPECT_TRUE(rig.form.Command3.enabled());
  EXPECT_TRUE(rig.songs.played(0));
}

TEST(ThirdBranch, TwentyFourAreSkippedAndTheTwentyFifthIsReportedOnce) {
  PlayerRig rig;
  rig.fillEqual(100, 180);
  rig.autoNext();
  rig.player.decks().currentDeckIsA = 1;
  rig.machine.dialogs.answer(Answer::Ok);
  rig.form.Command1.userClick();
  rig.settle();
  EXPECT_EQ(rig.form.List1.listIndex(), 24);
  EXPECT_EQ(rig.machine.trace({Door::Dialogs}), kMessage);
  EXPECT_EQ(rig.player.state().playRetryCount, 0);
  EXPECT_EQ(renders(rig), 0);
  EXPECT_NE(rig.player.decks().currentDeckIsA, base::kTrue);
  EXPECT_NE(rig.player.decks().currentDeckIsA, base::kFalse);
}

TEST(ThirdBranch, NothingStartsWhileItsMessageIsOpen) {
  PlayerRig rig;
  rig.fillEqual(100, 180);
  rig.single();
  rig.player.decks().currentDeckIsA = 1;
  rig.player.state().playRetryCount = 24;
  rig.machine.dialogs.answer(Answer::Ok, 30s);
  bool asked = false;
  rig.machine.timeline.post([&] {
    asked = true;
    rig.player.list1_DblClick();
  });
  rig.form.Command1.userClick();
  rig.settle();
  EXPECT_TRUE(asked);
  EXPECT_EQ(rig.machine.trace({Door::Dialogs}), kMessage);
  EXPECT_EQ(rig.player.state().playRetryCount, 0);
  EXPECT_TRUE(rig.form.Command3.enabled());
}

}  // namespace
}  // namespace nerolith::player
