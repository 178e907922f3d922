#include "base/patience.h"

#include <gtest/gtest.h>

namespace nerolith::base {
namespace {

using namespace std::chrono_literals;

const Patience::Clock::time_point kBegin{};

TEST(Patience, IsOverAfterAStandstill) {
  Patience patience({.standstill = 5s, .inAll = 30s}, kBegin);
  EXPECT_FALSE(patience.over(0, kBegin + 4999ms));
  EXPECT_TRUE(patience.over(0, kBegin + 5s));
}

TEST(Patience, BeginsAnewWithEachProgress) {
  Patience patience({.standstill = 5s, .inAll = 30s}, kBegin);
  EXPECT_FALSE(patience.over(1, kBegin + 4s));
  EXPECT_FALSE(patience.over(1, kBegin + 8s));
  EXPECT_FALSE(patience.over(2, kBegin + 8500ms));
  EXPECT_FALSE(patience.over(2, kBegin + 13s));
  EXPECT_TRUE(patience.over(2, kBegin + 13500ms));
}

TEST(Patience, EndsInAllHoweverItGoesOn) {
  Patience patience({.standstill = 5s, .inAll = 30s}, kBegin);
  for (int second = 1; second < 30; ++second)
    EXPECT_FALSE(
        patience.over(static_cast<std::uint64_t>(second), kBegin + std::chrono::seconds(second)));
  EXPECT_TRUE(patience.over(30, kBegin + 30s));
}

}  // namespace
}  // namespace nerolith::base
