#include "settings/mix_limits.h"

#include <gtest/gtest.h>

namespace nerolith::settings {
namespace {

TEST(MixLimits, ALengthWithinLeadAndThirtySecondsStays) {
  EXPECT_EQ(validLength("10", "10"), "10");
  EXPECT_EQ(validLength("30", "60"), "30");
  EXPECT_EQ(validLength("0", "0"), "0");
}

TEST(MixLimits, ALengthAboveTheLeadBecomesTheLeadsText) {
  EXPECT_EQ(validLength("10", "8"), "8");
  EXPECT_EQ(validLength("10", "8 or so"), "8 or so");
}

TEST(MixLimits, ALengthAboveThirtyBecomesTheLeadEvenWhereThatIsLonger) {
  EXPECT_EQ(validLength("40", "45"), "45");
  EXPECT_EQ(validLength("31", "45"), "45");
  EXPECT_EQ(validLength("50", "45"), "45");
}

TEST(MixLimits, ALeadWithinSixtySecondsAndNotBelowTheLengthStays) {
  EXPECT_EQ(validLead("5", "5"), "5");
  EXPECT_EQ(validLead("5", "60"), "60");
}

TEST(MixLimits, ALeadAboveSixtyBecomesTheLengthsText) { EXPECT_EQ(validLead("5", "70"), "5"); }

TEST(MixLimits, ALeadBelowTheLengthBecomesTheLengthEvenWhereThatIsTooLong) {
  EXPECT_EQ(validLead("5", "4"), "5");
  EXPECT_EQ(validLead("90", "10"), "90");
}

TEST(MixLimits, OnlyWholeSecondsAreCompared) {
  EXPECT_EQ(validLength("30.9", "60"), "30.9");
  EXPECT_EQ(validLength("8.9", "8.1"), "8.9");
  EXPECT_EQ(validLead("5.9", "60.9"), "60.9");
  EXPECT_EQ(validLead("5.9", "5.1"), "5.1");
}

TEST(MixLimits, ATextThatIsNoNumberCountsAsItsLeadingNumberOrNought) {
  EXPECT_EQ(validLength("abc", "8"), "abc");
  EXPECT_EQ(validLength("9s", "8"), "8");
  EXPECT_EQ(validLead("5", "abc"), "5");
  EXPECT_EQ(validLength("1", ""), "");
  EXPECT_EQ(validLead("5", "1e30"), "5");
}

}  // namespace
}  // namespace nerolith::settings
