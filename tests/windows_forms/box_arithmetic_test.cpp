#include "platform/windows/forms/box_arithmetic.h"

#include <gtest/gtest.h>

namespace nerolith::windows_forms {
namespace {

using Lengths = std::vector<int>;

TEST(BoxArithmetic, WhatIsLeftOverGoesToTheStretches) {
  EXPECT_EQ(shareRoom({{40, 40}, {10, 10, 1}, {10, 10, 3}}, 240), (Lengths{40, 50, 150}));
}

TEST(BoxArithmetic, AStretchNeverTakesWhatAnotherBoxWants) {
  EXPECT_EQ(shareRoom({{90, 90, 1}, {10, 10, 1}}, 120), (Lengths{90, 30}));
}

TEST(BoxArithmetic, WithoutStretchesTheGrowingBoxesTakeTheRest) {
  EXPECT_EQ(shareRoom({{40, 40}, {10, 10, 0, true}}, 100), (Lengths{40, 60}));
}

TEST(BoxArithmetic, WhenNobodyAsksForMoreEveryPlaceWidensAlike) {
  EXPECT_EQ(shareRoom({{10, 10}, {20, 20}, {30, 30}}, 70), (Lengths{13, 23, 34}));
}

TEST(BoxArithmetic, WhereRoomIsMissingBoxesGiveWhatTheyCan) {
  EXPECT_EQ(shareRoom({{40, 40}, {60, 20}, {60, 40}}, 130), (Lengths{40, 40, 50}));
}

TEST(BoxArithmetic, NoBoxIsShorterThanItsLeast) {
  EXPECT_EQ(shareRoom({{40, 30}, {60, 20}}, 10), (Lengths{30, 20}));
}

}  // namespace
}  // namespace nerolith::windows_forms
