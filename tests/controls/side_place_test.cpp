#include "controls/side_place.h"

#include <gtest/gtest.h>

namespace nerolith::controls {
namespace {

constexpr DesktopArea kScreen{0, 30, 1920, 1080};

TEST(SidePlace, StandsAtTheRightWithItsTopLevel) {
  EXPECT_EQ(placeAtSide({100, 200, 800, 900}, 450, 500, kScreen), (DesktopPoint{800, 200}));
}

TEST(SidePlace, ChangesSidesWhereTheScreenEnds) {
  EXPECT_EQ(placeAtSide({800, 200, 1500, 900}, 450, 500, kScreen), (DesktopPoint{350, 200}));
}

TEST(SidePlace, LiesOverAnOwnerThatFillsTheScreen) {
  EXPECT_EQ(placeAtSide({0, 30, 1920, 1080}, 450, 500, kScreen), (DesktopPoint{1470, 30}));
}

TEST(SidePlace, StaysOnTheScreenBelowAndAbove) {
  EXPECT_EQ(placeAtSide({100, 900, 800, 1300}, 450, 500, kScreen), (DesktopPoint{800, 580}));
  EXPECT_EQ(placeAtSide({100, -50, 800, 700}, 450, 500, kScreen), (DesktopPoint{800, 30}));
  EXPECT_EQ(placeAtSide({100, 100, 800, 700}, 450, 5000, kScreen), (DesktopPoint{800, 30}));
}

}  // namespace
}  // namespace nerolith::controls
