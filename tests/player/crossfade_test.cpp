#include "player/crossfade.h"

#include <gtest/gtest.h>

namespace nerolith::player {
namespace {

int ticksUntilReleased(std::int32_t volume, float fadeSteps) {
  int ticks = 0;
  while (!fadeIsOver(volume)) {
    volume = fadedVolume(volume, fadeSteps);
    ++ticks;
  }
  return ticks;
}

TEST(Crossfade, AStepIsFiveThousandOverTheTicksAndOneMore) {
  EXPECT_DOUBLE_EQ(fadeStep(5), 5000.0 / 51.0);
  EXPECT_DOUBLE_EQ(fadeStep(0), 5000.0);
  EXPECT_DOUBLE_EQ(fadeStep(2.5F), 5000.0 / 26.0);
}

TEST(Crossfade, TheFirstStepsWithTheDefaultsLoseTheirFraction) {
  EXPECT_EQ(fadedVolume(0, 5), -98);
  EXPECT_EQ(fadedVolume(-98, 5), -196);
  EXPECT_EQ(fadedVolume(-196, 5), -294);
}

TEST(Crossfade, HalvesRoundToTheEvenNeighbour) {
  ASSERT_DOUBLE_EQ(fadeStep(1.5F), 312.5);
  EXPECT_EQ(fadedVolume(0, 1.5F), -312);
  EXPECT_EQ(fadedVolume(-1, 1.5F), -314);
}

TEST(Crossfade, EndsAtTheFiftySecondTickWithTheDefaults) {
  EXPECT_EQ(ticksUntilReleased(0, 5), 52);
}

TEST(Crossfade, EndsAtTheFortySixthTickFromTheCorrectedStart) {
  EXPECT_EQ(ticksUntilReleased(-500, 5), 46);
}

TEST(Crossfade, ALengthOfZeroEndsAtTheSecondTick) { EXPECT_EQ(ticksUntilReleased(0, 0), 2); }

TEST(Crossfade, IsOverOnlyPastTheReleaseLevel) {
  EXPECT_FALSE(fadeIsOver(-5000));
  EXPECT_TRUE(fadeIsOver(-5001));
}

TEST(MixTrigger, FiresFromTheMixLeadBeforeTheEnd) {
  EXPECT_FALSE(mixIsDue({.position = 169.9, .duration = 180, .lead = 10}));
  EXPECT_TRUE(mixIsDue({.position = 170, .duration = 180, .lead = 10}));
  EXPECT_TRUE(mixIsDue({.position = 180, .duration = 180, .lead = 0}));
  EXPECT_FALSE(mixIsDue({.position = 179.9, .duration = 180, .lead = 0}));
}

TEST(MixTrigger, NeedsASongThatMovesAndIsNeitherFadingNorStartedByHand) {
  EXPECT_FALSE(mixIsDue({.position = 0, .duration = 0, .lead = 10}));
  EXPECT_FALSE(mixIsDue({.position = 175, .duration = 180, .lead = 10, .fading = true}));
  EXPECT_FALSE(mixIsDue({.position = 175, .duration = 180, .lead = 10, .manualStart = true}));
}

TEST(TimeDisplay, CountsDownToTheSongsEndOrUpFromItsStart) {
  EXPECT_FLOAT_EQ(displayTime(false, 180.4, 30), 150.4F);
  EXPECT_FLOAT_EQ(displayTime(true, 180.4, 30), 30.0F);
}

TEST(TimeDisplay, HasAtLeastTwoDigitsOfEach) {
  EXPECT_EQ(timeText(0), "00:00");
  EXPECT_EQ(timeText(-3), "00:00");
  EXPECT_EQ(timeText(59.99F), "00:59");
  EXPECT_EQ(timeText(60), "01:00");
  EXPECT_EQ(timeText(6009), "100:09");
}

TEST(TimeDisplay, CountdownRoundsUp) {
  EXPECT_EQ(countdownText(64.2), "1:05");
  EXPECT_EQ(countdownText(0.1), "0:01");
  EXPECT_EQ(countdownText(-1), "0:00");
}

TEST(PositionSlider, EndsAreRoundedAndHeldToSixteenBits) {
  EXPECT_EQ(sliderEnd(170.5), 170);
  EXPECT_EQ(sliderEnd(171.5), 172);
  EXPECT_EQ(sliderEnd(40000), 32767);
  EXPECT_EQ(sliderStep(170), 8);
  EXPECT_EQ(sliderStep(0), 1);
}

TEST(DeckLevel, IsLinearInDecibels) {
  EXPECT_FLOAT_EQ(levelPercent(0), 100);
  EXPECT_FLOAT_EQ(levelPercent(-2500), 50);
  EXPECT_FLOAT_EQ(levelPercent(-5096), 0);
}

TEST(Crossfade, ALengthBelowZeroEndsTheOldSongAtOnce) {
  EXPECT_LT(fadedVolume(0, -1), kReleaseLevel + 1);
  EXPECT_LT(fadedVolume(-98, -1e9F), kReleaseLevel);
  EXPECT_EQ(fadeStep(-3), fadeStep(0));
}

}  // namespace
}  // namespace nerolith::player
