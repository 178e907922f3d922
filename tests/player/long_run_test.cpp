#include <gtest/gtest.h>

#include <chrono>

#include "player_rig.h"

namespace nerolith::player {
namespace {

TEST(LongRun, ADayOfRandomOverTenThousandSongsTakesSeconds) {
  PlayerRig rig;
  std::vector<double> lengths;
  lengths.reserve(10000);
  for (int i = 0; i < 10000; ++i) lengths.push_back(i % 97 == 0 ? 0 : 150 + i % 120);
  rig.fill(lengths);
  rig.random();
  rig.machine.recordTrace(false);
  const auto start = std::chrono::steady_clock::now();
  rig.player.speelvolgendeknop();
  int quietHours = 0;
  for (int hour = 0; hour < 24; ++hour) {
    rig.machine.advance(1h);
    if (rig.machine.decks.audibleGraphs() == 0) ++quietHours;
  }
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
  RecordProperty("seconds", std::to_string(taken.count()));
  EXPECT_EQ(quietHours, 0);
  EXPECT_TRUE(rig.form.Command3.enabled());
  int played = 0;
  for (int i = 0; i < 10000; ++i) played += rig.songs.played(i) ? 1 : 0;
  EXPECT_GT(played, 400);
  EXPECT_LT(played, 500);
#if defined(NDEBUG) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
  EXPECT_LT(taken.count(), 10.0);
#endif
}

}  // namespace
}  // namespace nerolith::player
