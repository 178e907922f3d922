#include "base/rounding.h"

#include <gtest/gtest.h>

namespace nerolith::base {
namespace {

TEST(Rounding, TiesGoToTheEvenNeighbour) {
  EXPECT_EQ(roundHalfEven(0.5), 0.0);
  EXPECT_EQ(roundHalfEven(1.5), 2.0);
  EXPECT_EQ(roundHalfEven(2.5), 2.0);
  EXPECT_EQ(roundHalfEven(3.5), 4.0);
  EXPECT_EQ(roundHalfEven(-0.5), 0.0);
  EXPECT_EQ(roundHalfEven(-1.5), -2.0);
  EXPECT_EQ(roundHalfEven(-2.5), -2.0);
}

TEST(Rounding, AllElseGoesToTheNearest) {
  EXPECT_EQ(roundHalfEven(2.4999999), 2.0);
  EXPECT_EQ(roundHalfEven(2.5000001), 3.0);
  EXPECT_EQ(roundHalfEven(-2.5000001), -3.0);
  EXPECT_EQ(roundHalfEven(0.49999999999999994), 0.0);
  EXPECT_EQ(roundHalfEven(9007199254740993.0), 9007199254740992.0);
}

TEST(Rounding, SixteenBitsHoldTheirRange) {
  EXPECT_EQ(toInt16Clamped(32767.4), 32767);
  EXPECT_EQ(toInt16Clamped(32767.5), 32767);
  EXPECT_EQ(toInt16Clamped(1e300), 32767);
  EXPECT_EQ(toInt16Clamped(-1e300), -32768);
  EXPECT_EQ(toInt16Clamped(INFINITY), 32767);
  EXPECT_EQ(toInt16Clamped(2.5), 2);
}

TEST(Rounding, ThirtyTwoBitsHoldTheirRange) {
  EXPECT_EQ(toInt32Clamped(2147483648.0), 2147483647);
  EXPECT_EQ(toInt32Clamped(-2147483649.0), -2147483647 - 1);
  EXPECT_EQ(toInt32Clamped(-3.5), -4);
}

TEST(Rounding, NotANumberBecomesZero) {
  EXPECT_EQ(toInt16Clamped(NAN), 0);
  EXPECT_EQ(toInt32Clamped(NAN), 0);
}

}  // namespace
}  // namespace nerolith::base
