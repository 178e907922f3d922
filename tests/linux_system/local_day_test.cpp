#include "platform/linux/system/local_day.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace nerolith::system {
namespace {

class LocalDay : public ::testing::Test {
 protected:
  void SetUp() override {
    const char* zone = std::getenv("TZ");
    had_ = zone != nullptr;
    if (zone) saved_ = zone;
  }
  void TearDown() override {
    had_ ? setenv("TZ", saved_.c_str(), 1) : unsetenv("TZ");
    tzset();
  }
  static LocalMoment in(const char* zone, std::time_t seconds, long nanoseconds = 0) {
    setenv("TZ", zone, 1);
    tzset();
    return localMoment({seconds, nanoseconds});
  }

 private:
  bool had_ = false;
  std::string saved_;
};

TEST_F(LocalDay, CountsFromThe30thOfDecember1899) {
  EXPECT_EQ(in("UTC0", 0).day, 25569);
  EXPECT_EQ(in("UTC0", 0).seconds, 0);
  EXPECT_EQ(in("UTC0", 1700000000, 500'000'000).day, 45244);  // 14 November 2023, 22:13:20
  EXPECT_EQ(in("UTC0", 1700000000, 500'000'000).seconds, 22 * 3600 + 13 * 60 + 20.5);
  EXPECT_EQ(in("UTC0", -1).day, 25568);
}

TEST_F(LocalDay, IsTheOneOfTheUsersZone) {
  EXPECT_EQ(in("XXX-2", 1700000000).day, 45245);  // two hours ahead: past midnight
  EXPECT_EQ(in("XXX-2", 1700000000).seconds, 13 * 60 + 20);
  EXPECT_EQ(in("XXX+23", 1700000000).day, 45243);
}

}  // namespace
}  // namespace nerolith::system
