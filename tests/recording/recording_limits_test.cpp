#include "recording/recording_limits.h"

#include <gtest/gtest.h>

namespace nerolith::recording {
namespace {

TEST(RecordingLimits, ABoxKeepsTheNumberThatWasTyped) {
  EXPECT_EQ(limitText("12abc"), "12");
  EXPECT_EQ(limitText("abc"), "0");
  EXPECT_EQ(limitText(""), "0");
  EXPECT_EQ(limitText("0"), "0");
  EXPECT_EQ(limitText("007"), "7");
  EXPECT_EQ(limitText(" 74 min"), "74");
  EXPECT_EQ(limitText("0.5"), "0.5");
  EXPECT_EQ(limitText("-3"), "-3");
  EXPECT_EQ(limitText("99999999"), "99999999");
}

TEST(RecordingLimits, NumbersThatNoDiskHoldsStayReadable) {
  EXPECT_EQ(limitText(std::string(400, '9')), "1000000000000000");
  EXPECT_EQ(limitText("1e300"), "1000000000000000");
  EXPECT_EQ(minutesOfMegabytes("1e300"), minutesOfMegabytes("1000000000000000"));
}

TEST(RecordingLimits, MegabytesAndMinutesAreTheWholePartOfEachOther) {
  EXPECT_EQ(minutesOfMegabytes("12"), "1");  // 1.19
  EXPECT_EQ(minutesOfMegabytes("650"), "64");
  EXPECT_EQ(minutesOfMegabytes("0"), "0");
  EXPECT_EQ(minutesOfMegabytes("0.5"), "0");
  EXPECT_EQ(minutesOfMegabytes("-1"), "0");
  EXPECT_EQ(minutesOfMegabytes("99999999"), "9907180");
  EXPECT_EQ(megabytesOfMinutes("74"), "746");  // 746.9
  EXPECT_EQ(megabytesOfMinutes("1"), "10");
  EXPECT_EQ(megabytesOfMinutes("text"), "0");
}

TEST(RecordingLimits, TheFadesOwnBytesStayInsideTheLimit) {
  // 650 MB are 681574400 bytes, a fade of 10 s takes 1764000 of them.
  EXPECT_FALSE(limitReached("650", 10, 679810400));
  EXPECT_TRUE(limitReached("650", 10, 679810401));
}

TEST(RecordingLimits, ALimitOfNothingNeverStops) {
  for (const char* none : {"", "0", "abc", "-5"})
    EXPECT_FALSE(limitReached(none, 5, 2147483647)) << none;
}

TEST(RecordingLimits, ALimitThatTheFadeAloneFillsStopsAtOnce) {
  EXPECT_TRUE(limitReached("1", 10, 0));
  EXPECT_FALSE(limitReached("1", 5, 0));
  EXPECT_TRUE(limitReached("0.5", 5, 0));
}

TEST(RecordingLimits, TheSizeIsShownInTenthsOfAMegabyte) {
  EXPECT_EQ(fileSizeText(0), "Filesize: 0.0 MB");
  EXPECT_EQ(fileSizeText(352800), "Filesize: 0.3 MB");
  EXPECT_EQ(fileSizeText(52428), "Filesize: 0.0 MB");
  EXPECT_EQ(fileSizeText(52429), "Filesize: 0.1 MB");
  EXPECT_EQ(fileSizeText(262144), "Filesize: 0.3 MB");  // exactly a quarter
  EXPECT_EQ(fileSizeText(679804000), "Filesize: 648.3 MB");
  EXPECT_EQ(fileSizeText(2147483647), "Filesize: 2048.0 MB");
}

}  // namespace
}  // namespace nerolith::recording
