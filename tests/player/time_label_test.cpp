#include "player/time_label.h"

#include <gtest/gtest.h>

#include <vector>

namespace nerolith::player {
namespace {

TEST(TimeLabel, TheLeftButtonTogglesElapsedTime) {
  controls::Label label;
  settings::LiveSettings live;
  TimeLabel time(label, live);
  label.mouseDown.raise(controls::MouseButton::Left);
  EXPECT_EQ(live.timeInverted, -1);
  label.mouseDown.raise(controls::MouseButton::Left);
  EXPECT_EQ(live.timeInverted, 0);
}

TEST(TimeLabel, TheRightButtonGoesThroughThePaletteAndWrapsAtSixteen) {
  controls::Label label;
  settings::LiveSettings live;
  live.colour = 0;
  TimeLabel time(label, live);
  const std::vector<controls::Colour> expected = {
      0x800000, 0x008000, 0x808000, 0x000080, 0x800080, 0x008080, 0xC0C0C0, 0x808080,
      0xFF0000, 0x00FF00, 0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF, 0x000000};
  for (const controls::Colour colour : expected) {
    label.mouseDown.raise(controls::MouseButton::Right);
    EXPECT_EQ(label.foreColour(), colour);
  }
  EXPECT_EQ(live.colour, 0);
}

TEST(TimeLabel, AStoredNumberOutsideThePaletteStillShows) {
  EXPECT_EQ(paletteColour(-5), 0x000000U);
  EXPECT_EQ(paletteColour(1e9F), 0xFFFFFFU);
  EXPECT_EQ(nextPaletteNumber(1e9F), 0);
}

}  // namespace
}  // namespace nerolith::player
