#include <gtest/gtest.h>

#include "player_rig.h"

namespace nerolith::player {
namespace {

/// An evening in short: starts, a mix, a pause, a seek, a stop, and random play.
void playALittle(PlayerRig& rig) {
  rig.fill({30, 30, 0, 30, 30, 30, 30, 30});
  rig.autoNext();
  rig.start(0);
  rig.ticks(230);
  rig.form.Command4.userClick();
  rig.ticks(5);
  rig.form.Command4.userClick();
  rig.form.HScroll1.userDrag(12);
  rig.form.HScroll1.userRelease();
  rig.ticks(100);
  rig.form.Command3.userClick();
  rig.ticks(3);
  rig.start(4);
  rig.ticks(20);
  rig.form.Command2.userClick();
  rig.random();
  rig.form.Command3.userClick();
  rig.ticks(300);
}

/// What the user would notice afterwards.
void expectAllIsWell(PlayerRig& rig) {
  EXPECT_TRUE(rig.form.Command3.enabled());
  EXPECT_LT(rig.player.state().playRetryCount, 25);
  EXPECT_EQ(rig.player.state().sliderIdle, base::kTrue);

  rig.form.Command2.userClick();
  EXPECT_EQ(rig.machine.decks.audibleGraphs(), 0);
  rig.start(1);
  EXPECT_EQ(rig.currentSong(), "b.mp3");
  EXPECT_EQ(rig.machine.decks.audibleGraphs(), 1);
  rig.ticks(1);
  EXPECT_EQ(rig.songs.playingPosition(), 1);
}

TEST(Faults, WithoutAnyTheScenarioPlays) {
  PlayerRig rig;
  playALittle(rig);
  EXPECT_EQ(rig.machine.trace({Door::Dialogs}), "");
  expectAllIsWell(rig);
}

TEST(Faults, WhicheverSingleDoorCallFailsThePlayerGoesOn) {
  std::uint64_t calls = 0;
  {
    PlayerRig rig;
    const std::uint64_t before = rig.machine.doorCalls();
    playALittle(rig);
    calls = rig.machine.doorCalls() - before;
  }
  ASSERT_GT(calls, 1000U);
  for (std::uint64_t n = 1; n <= calls; ++n) {
    SCOPED_TRACE("call " + std::to_string(n));
    PlayerRig rig;
    rig.machine.failDoorCall(n);
    playALittle(rig);
    ASSERT_EQ(rig.machine.doorway.faults(), 1U);
    ASSERT_EQ(rig.machine.trace({Door::Dialogs}), "");
    rig.machine.failDoorCall(0);
    expectAllIsWell(rig);
    if (HasFailure()) break;
  }
}

TEST(Faults, TheSameCallsFailInTheSameWay) {
  std::string traces[2];
  for (std::string& trace : traces) {
    PlayerRig rig;
    rig.machine.failDoorCall(40);
    playALittle(rig);
    trace = rig.machine.trace();
  }
  EXPECT_EQ(traces[0], traces[1]);
}

/// A screen that is gone.
struct NoDialogs : platform::Dialogs {
  int asked = 0;
  Answer showMessage(const platform::Message&) override {
    ++asked;
    throw base::Failure("there is no screen");
  }
  std::optional<std::string> openFile(const platform::FileQuestion&) override { return {}; }
  std::optional<std::string> saveFile(const platform::FileQuestion&) override { return {}; }
};

TEST(Faults, AMessageThatCannotBeShownBlocksNothing) {
  NoDialogs dialogs;
  PlayerRig rig(5, &dialogs);
  rig.fillEqual(30, 0);
  rig.autoNext();
  rig.start(0);
  rig.settle();
  EXPECT_EQ(dialogs.asked, 1);
  EXPECT_TRUE(rig.form.Command3.enabled());
  EXPECT_EQ(rig.player.state().playRetryCount, 0);
}

TEST(Faults, ADeckThatCouldNotBeMadeIsMadeWhenItIsNeeded) {
  PlayerRig rig;
  rig.fillEqual(3, 180);
  rig.start(0);
  rig.machine.failDoorCall(2);
  rig.form.Command2.userClick();
  ASSERT_EQ(rig.machine.doorway.faults(), 1U);
  ASSERT_EQ(rig.player.decks().a.graph, nullptr);
  rig.ticks(3);
  rig.start(1);
  rig.start(2);
  EXPECT_EQ(rig.machine.decks.audibleGraphs(), 2);
}

}  // namespace
}  // namespace nerolith::player
