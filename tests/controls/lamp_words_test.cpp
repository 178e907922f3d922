#include "controls/lamp_words.h"

#include <gtest/gtest.h>

namespace nerolith::controls {
namespace {

TEST(LampWords, GreyIsDarkAndEveryColourIsLit) {
  EXPECT_FALSE(lampLit(kGrey));
  EXPECT_FALSE(lampLit(0));
  for (const Colour colour : {kRed, kGreen, kYellow, Colour{49152}, Colour{33023}})
    EXPECT_TRUE(lampLit(colour)) << colour;
}

TEST(LampWords, AStateIsOffOnOrWaiting) {
  EXPECT_STREQ(lampState(kGrey), "off");
  EXPECT_STREQ(lampState(kGreen), "on");
  EXPECT_STREQ(lampState(kRed), "on");
  EXPECT_STREQ(lampState(kYellow), "waiting");
}

TEST(LampWords, TheIndicatorOfPeaksSaysItsColour) {
  EXPECT_STREQ(lampColour(kGrey), "off");
  EXPECT_STREQ(lampColour(49152), "green");
  EXPECT_STREQ(lampColour(33023), "orange");
  EXPECT_STREQ(lampColour(255), "red");
  EXPECT_STREQ(lampColour(kYellow), "yellow");
  EXPECT_STREQ(lampColour(0xFF0000), "blue");
}

}  // namespace
}  // namespace nerolith::controls
