#include "player/play_modes.h"

#include <gtest/gtest.h>

#include "player_rig.h"

namespace nerolith::player {
namespace {

TEST(PlayModes, SingleStretchesTheSliderOverTheSong) {
  PlayerRig rig;
  rig.fillEqual(3, 180);
  rig.autoNext();
  rig.start(1);
  ASSERT_EQ(rig.form.HScroll1.max(), 170);
  rig.player.state().manualStartFirst = base::kTrue;
  rig.player.state().manualStartSecond = base::kTrue;
  rig.form.Option1.userClick();
  EXPECT_EQ(rig.live.modeCode, "1");
  EXPECT_EQ(rig.form.HScroll1.max(), 180);
  EXPECT_EQ(rig.player.state().rememberedRandomIndex, 1);
  EXPECT_EQ(rig.player.state().manualStartFirst, base::kFalse);
  EXPECT_EQ(rig.player.state().manualStartSecond, base::kFalse);
  EXPECT_EQ(rig.machine.windows.focused(), &rig.form.List1);
}

TEST(PlayModes, TheMixingModesSetBothLatches) {
  PlayerRig rig;
  for (auto* option : {&rig.form.Option2, &rig.form.Option3}) {
    rig.player.decks().a.mixLatch = base::kFalse;
    rig.player.decks().b.mixLatch = base::kFalse;
    option->userClick();
    EXPECT_EQ(rig.player.decks().a.mixLatch, base::kTrue);
    EXPECT_EQ(rig.player.decks().b.mixLatch, base::kTrue);
  }
  EXPECT_EQ(rig.live.modeCode, "3");
}

TEST(PlayModes, LoopEnablesThePlaytimeLabelWhenItIsOff) {
  PlayerRig rig;
  rig.form.Check1.userClick();
  EXPECT_EQ(rig.live.loop, base::kTrue);
  EXPECT_FALSE(rig.form.Label4.enabled());
  rig.form.Check1.userClick();
  EXPECT_EQ(rig.live.loop, base::kFalse);
  EXPECT_TRUE(rig.form.Label4.enabled());
}

TEST(PlayModes, TheWordsBesideTheLampsChooseThem) {
  PlayerRig rig;
  rig.form.Label7[1].userClick();
  EXPECT_TRUE(rig.form.Option2.value());
  rig.form.Label7[2].userClick();
  EXPECT_TRUE(rig.form.Option3.value());
  rig.form.Label7[0].userClick();
  EXPECT_TRUE(rig.form.Option1.value());
  rig.form.Label7[3].userClick();
  EXPECT_EQ(rig.form.Check1.value(), 1);
  rig.form.Check1.setValue(2);
  rig.form.Label7[3].userClick();
  EXPECT_EQ(rig.form.Check1.value(), 0);
}

}  // namespace
}  // namespace nerolith::player
