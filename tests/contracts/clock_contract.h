// What every clock promises.
//
// A backend for the suite is a default-constructible struct with
//   platform::Clock& clock();
//   void pass();  // lets a few milliseconds go by
#pragma once

#include <gtest/gtest.h>

#include <cmath>

#include "platform/clock.h"

namespace nerolith::contracts {

template <typename Backend>
class ClockContract : public ::testing::Test {
 protected:
  Backend backend;
};

TYPED_TEST_SUITE_P(ClockContract);

TYPED_TEST_P(ClockContract, SecondsStayWithinTheDay) {
  const double seconds = this->backend.clock().secondsSinceMidnight();
  EXPECT_GE(seconds, 0);
  EXPECT_LT(seconds, 86400);
}

TYPED_TEST_P(ClockContract, TodayIsAWholeDayOfOurTimes) {
  const double day = this->backend.clock().today();
  EXPECT_EQ(day, std::floor(day));
  EXPECT_GT(day, 44000);   // 2020
  EXPECT_LT(day, 110000);  // 2201
}

TYPED_TEST_P(ClockContract, GoesOnInFractionsOfASecond) {
  platform::Clock& clock = this->backend.clock();
  const double day = clock.today(), seconds = clock.secondsSinceMidnight();
  this->backend.pass();
  const double passed = (clock.today() - day) * 86400 + clock.secondsSinceMidnight() - seconds;
  EXPECT_GT(passed, 0);
  EXPECT_LT(passed, 60);
}

REGISTER_TYPED_TEST_SUITE_P(ClockContract, SecondsStayWithinTheDay, TodayIsAWholeDayOfOurTimes,
                            GoesOnInFractionsOfASecond);

}  // namespace nerolith::contracts
