#include "player/front_panel.h"

#include <gtest/gtest.h>

#include "player_rig.h"

namespace nerolith::player {
namespace {

TEST(FrontPanel, SaysWhichTimeIsShown) {
  PlayerRig rig;
  rig.ticks(1);
  EXPECT_EQ(rig.form.timeKind.caption(), "REMAINING");
  rig.live.timeInverted = base::kTrue;
  rig.ticks(1);
  EXPECT_EQ(rig.form.timeKind.caption(), "ELAPSED");
}

TEST(FrontPanel, ShowsTheCurrentDeckAndBothLevels) {
  PlayerRig rig;
  rig.fillEqual(3, 180);
  rig.start(0);
  rig.start(1);
  rig.ticks(26);
  EXPECT_EQ(rig.form.deckWordA.foreColour(), controls::kGrey);
  EXPECT_EQ(rig.form.deckWordB.foreColour(), controls::kGreen);
  EXPECT_FLOAT_EQ(rig.form.deckLevelB.value(), 100);
  EXPECT_FLOAT_EQ(rig.form.deckLevelA.value(), (5000 - 26 * 98) / 50.0F);
  rig.ticks(26);
  EXPECT_FLOAT_EQ(rig.form.deckLevelA.value(), 0);
}

TEST(FrontPanel, CountsDownToTheMix) {
  PlayerRig rig;
  rig.fillEqual(3, 180);
  rig.autoNext();
  rig.start(0);
  rig.ticks(1050);
  EXPECT_EQ(rig.form.mixIn.caption(), "mix in 1:05");
  EXPECT_EQ(rig.form.HScroll1.endMark(), "mix");
}

TEST(FrontPanel, PromisesNoMixWhereNoneLiesAhead) {
  PlayerRig rig;
  rig.fillEqual(3, 180);
  rig.autoNext();
  rig.ticks(1);
  EXPECT_EQ(rig.form.mixIn.caption(), "");
  EXPECT_EQ(rig.form.HScroll1.endMark(), "");
  rig.start(2);
  rig.ticks(10);
  EXPECT_EQ(rig.form.mixIn.caption(), "");
  rig.loop();
  rig.ticks(1);
  EXPECT_EQ(rig.form.mixIn.caption(), "mix in 2:49");
  rig.single();
  rig.ticks(1);
  EXPECT_EQ(rig.form.mixIn.caption(), "");
  EXPECT_EQ(rig.form.HScroll1.endMark(), "");
}

TEST(FrontPanel, SaysWhatIsWrongWithTheSound) {
  PlayerRig rig;
  rig.machine.decks.setSoundTrouble("The sound server does not answer.");
  rig.ticks(1);
  EXPECT_EQ(rig.form.notice.caption(), "The sound server does not answer.");
  rig.machine.decks.setSoundTrouble("");
  rig.ticks(1);
  EXPECT_EQ(rig.form.notice.caption(), "");
}

TEST(FrontPanel, ATickThatChangesNothingPaintsNothing) {
  PlayerRig rig;
  rig.fillEqual(300, 180);
  rig.form.Command2.userClick();
  rig.ticks(2);
  int painted = 0;
  std::vector<base::Subscription> watching;
  for (controls::Control* control : std::vector<controls::Control*>{
           &rig.form.Label1, &rig.form.Label2, &rig.form.Label3, &rig.form.Label6[0],
           &rig.form.mixIn, &rig.form.notice, &rig.form.deckWordA, &rig.form.deckLevelA,
           &rig.form.List1, &rig.form.HScroll1, &rig.form.timeKind})
    watching.push_back(control->changed.subscribe([&] { ++painted; }));
  rig.ticks(100);
  EXPECT_EQ(painted, 0);
}

}  // namespace
}  // namespace nerolith::player
