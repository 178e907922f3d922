#include "controls/scroll_bar.h"

#include <gtest/gtest.h>

#include "base/failure.h"
#include "controls/event_count.h"

namespace nerolith::controls {
namespace {

struct Slider {
  ScrollBar bar;
  EventCount changes{bar.change};
  EventCount scrolls{bar.scroll};
};

TEST(ScrollBar, AnotherValueByCodeRaisesChange) {
  Slider slider;
  slider.bar.setValue(7);
  slider.bar.setValue(7);
  EXPECT_EQ(slider.changes(), 1);
  EXPECT_EQ(slider.scrolls(), 0);
}

TEST(ScrollBar, AValueOutsideTheRangeFailsAndChangesNothing) {
  Slider slider;
  slider.bar.setMin(1);
  slider.bar.setMax(100);
  slider.bar.setValue(50);
  const int before = slider.changes();
  EXPECT_THROW(slider.bar.setValue(0), base::Failure);
  EXPECT_THROW(slider.bar.setValue(101), base::Failure);
  EXPECT_EQ(slider.bar.value(), 50);
  EXPECT_EQ(slider.changes(), before);
}

TEST(ScrollBar, TheValueFollowsARangeThatMovedPastIt) {
  Slider slider;
  slider.bar.setMin(1);
  EXPECT_EQ(slider.bar.value(), 1);
  EXPECT_EQ(slider.changes(), 1);
  slider.bar.setMax(100);
  EXPECT_EQ(slider.changes(), 1);
  slider.bar.setValue(90);
  slider.bar.setMax(60);
  EXPECT_EQ(slider.bar.value(), 60);
  EXPECT_EQ(slider.changes(), 3);
}

TEST(ScrollBar, ARangeMayRunBackwards) {
  Slider slider;
  slider.bar.setMin(10);
  slider.bar.setMax(-10);
  slider.bar.setValue(-10);
  slider.bar.setValue(10);
  EXPECT_THROW(slider.bar.setValue(11), base::Failure);
}

TEST(ScrollBar, ADragScrollsForEachValueAndChangesOnceAtRelease) {
  Slider slider;
  slider.bar.userDrag(3);
  slider.bar.userDrag(9);
  EXPECT_EQ(slider.scrolls(), 2);
  EXPECT_EQ(slider.changes(), 0);
  EXPECT_EQ(slider.bar.value(), 9);
  slider.bar.userRelease();
  EXPECT_EQ(slider.changes(), 1);
}

TEST(ScrollBar, AThumbLetGoWhereItWasTakenUpChangesToo) {
  Slider slider;
  slider.bar.userRelease();
  EXPECT_EQ(slider.changes(), 1);
}

TEST(ScrollBar, WhatTheUserDoesIsHeldToTheRange) {
  Slider slider;
  slider.bar.setMax(20);
  slider.bar.userDrag(99999);
  EXPECT_EQ(slider.bar.value(), 20);
  slider.bar.userMove(-99999);
  EXPECT_EQ(slider.bar.value(), 0);
  EXPECT_EQ(slider.changes(), 1);
}

TEST(ScrollBar, TheUserCannotMoveADisabledOne) {
  Slider slider;
  slider.bar.setEnabled(false);
  slider.bar.userDrag(5);
  slider.bar.userRelease();
  slider.bar.userMove(5);
  EXPECT_EQ(slider.bar.value(), 0);
  EXPECT_EQ(slider.changes() + slider.scrolls(), 0);
}

}  // namespace
}  // namespace nerolith::controls
