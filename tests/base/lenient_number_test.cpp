#include "base/lenient_number.h"

#include <gtest/gtest.h>

#include <limits>

namespace nerolith::base {
namespace {

TEST(LenientNumber, TakesTheLeadingNumberAndNoMore) {
  EXPECT_EQ(leadingNumber("12"), 12.0);
  EXPECT_EQ(leadingNumber("12abc"), 12.0);
  EXPECT_EQ(leadingNumber(" \t2.5s"), 2.5);
  EXPECT_EQ(leadingNumber("-.5"), -0.5);
  EXPECT_EQ(leadingNumber("+7"), 7.0);
  EXPECT_EQ(leadingNumber("7."), 7.0);
  EXPECT_EQ(leadingNumber("1e3x"), 1000.0);
  EXPECT_EQ(leadingNumber("1e"), 1.0);
  EXPECT_EQ(leadingNumber("3,5"), 3.0);
}

TEST(LenientNumber, IsZeroWhereThereIsNone) {
  for (const char* text :
       {"", " ", "abc", "-", "+", ".", "--1", "+-1", "nan", "inf", "-infinity", "e5", "\xC3\xBC"})
    EXPECT_EQ(leadingNumber(text), 0.0) << text;
}

TEST(LenientNumber, HugeNumbersAreHeldToTheLargest) {
  const double largest = std::numeric_limits<double>::max();
  EXPECT_EQ(leadingNumber("1e999"), largest);
  EXPECT_EQ(leadingNumber("-1e999"), -largest);
  EXPECT_EQ(leadingNumber(std::string(5000, '9')), largest);
}

TEST(LenientNumber, TinyNumbersAreZero) {
  EXPECT_EQ(leadingNumber("1e-999"), 0.0);
  EXPECT_EQ(leadingNumber("0." + std::string(5000, '0') + "1"), 0.0);
}

TEST(LenientNumber, BooleansAreWordsInAnyCaseOrNumbers) {
  EXPECT_TRUE(toBoolean("True"));
  EXPECT_TRUE(toBoolean("TRUE"));
  EXPECT_TRUE(toBoolean("-1"));
  EXPECT_TRUE(toBoolean("2"));
  EXPECT_TRUE(toBoolean("0.1"));
  EXPECT_FALSE(toBoolean("False"));
  EXPECT_FALSE(toBoolean("fALSE"));
  EXPECT_FALSE(toBoolean("0"));
  EXPECT_FALSE(toBoolean(""));
  EXPECT_FALSE(toBoolean("yes"));
}

TEST(LenientNumber, BooleansStandWithBlanksAroundThem) {
  EXPECT_TRUE(toBoolean(" True"));
  EXPECT_TRUE(toBoolean("True "));
  EXPECT_FALSE(toBoolean("Truely"));
}

TEST(LenientNumber, SinglesAreWrittenInTheirShortestDecimalForm) {
  EXPECT_EQ(shortestDecimal(10.0F), "10");
  EXPECT_EQ(shortestDecimal(2.5F), "2.5");
  EXPECT_EQ(shortestDecimal(0.1F), "0.1");
  EXPECT_EQ(shortestDecimal(-3.0F), "-3");
}

TEST(LenientNumber, EverySingleIsReadBackAsItWasWritten) {
  for (const float value :
       {0.3F, 1.0F / 3, 16777216.0F, 1e-40F, std::numeric_limits<float>::denorm_min(),
        std::numeric_limits<float>::max(), std::numeric_limits<float>::lowest()})
    EXPECT_EQ(static_cast<float>(leadingNumber(shortestDecimal(value))), value);
}

TEST(LenientNumber, BooleansAreWrittenAsWords) {
  EXPECT_EQ(booleanText(true), "True");
  EXPECT_EQ(booleanText(false), "False");
}

}  // namespace
}  // namespace nerolith::base
