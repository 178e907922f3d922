#include "recording/peak_meter.h"

#include <gtest/gtest.h>

namespace nerolith::recording {
namespace {

TEST(PeakMeter, TheBarNeverQuiteReachesItsEnd) {
  EXPECT_EQ(meterPercent(0), 0.0F);
  EXPECT_EQ(meterPercent(32767), 32767.0F / 32769.0F * 100.0F);
  EXPECT_LT(meterPercent(32767), 100.0F);
  EXPECT_NEAR(meterPercent(16384), 49.9985F, 0.0001F);
}

TEST(PeakMeter, TheIndicatorTurnsOrangeAt21500AndRedAbove30000) {
  EXPECT_EQ(indicatorColour(0), 49152U);
  EXPECT_EQ(indicatorColour(21499), 49152U);
  EXPECT_EQ(indicatorColour(21500), 33023U);
  EXPECT_EQ(indicatorColour(30000), 33023U);
  EXPECT_EQ(indicatorColour(30001), 255U);
  EXPECT_EQ(indicatorColour(32767), 255U);
}

}  // namespace
}  // namespace nerolith::recording
