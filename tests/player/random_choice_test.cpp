#include "player/random_choice.h"

#include <gtest/gtest.h>

#include <chrono>
#include <vector>

#include "base/failure.h"

namespace nerolith::player {
namespace {

struct Songs {
  explicit Songs(int count) {
    list.refill(std::vector<std::string>(static_cast<std::size_t>(count), "song.mp3"));
  }
  void markRecent(int position) {
    list.setRecent(position, true);
    list.anyRecent = true;
  }
  int choose(int candidate, const RecentRule& rule = {}) {
    return chooseRandom(list, list.listCount(), candidate, random, rule, recentCount);
  }

  controls::ListBox box;
  controls::TextBox text1, text2;
  library::SongList list{box, text1, text2};
  RandomSource random;
  std::int16_t recentCount = 0;
};

constexpr RecentRule kRule{.enabled = true, .after = 5};

TEST(RandomChoice, TakesTheFirstDrawWhenItIsUnplayed) {
  Songs songs(10);
  EXPECT_EQ(songs.choose(7), 7);
}

TEST(RandomChoice, DrawsUntilItFits) {
  Songs songs(10);
  for (int i = 0; i < 10; ++i) songs.list.setPlayed(i, i != 4);
  EXPECT_EQ(songs.choose(7), 4);
}

TEST(RandomChoice, IsTheSameInEveryRun) {
  Songs first(100);
  Songs second(100);
  for (int i = 0; i < 100; ++i) {
    const int chosen = first.choose(drawPosition(first.random, 100));
    ASSERT_EQ(chosen, second.choose(drawPosition(second.random, 100)));
    ASSERT_FALSE(first.list.played(chosen));
    first.list.setPlayed(chosen, true);
    second.list.setPlayed(chosen, true);
  }
  EXPECT_FALSE(first.list.anyUnplayed(100));
}

TEST(RandomChoice, ARecentOneFoundByChanceLeavesTheCountAtOne) {
  Songs songs(10);
  songs.markRecent(3);
  songs.recentCount = 4;
  EXPECT_EQ(songs.choose(3, kRule), 3);
  EXPECT_EQ(songs.recentCount, 1);
}

TEST(RandomChoice, AForcedRecentOneLeavesTheCountAtZero) {
  Songs songs(10);
  songs.markRecent(3);
  songs.recentCount = 5;
  EXPECT_EQ(songs.choose(7, kRule), 3);
  EXPECT_EQ(songs.recentCount, 0);
}

TEST(RandomChoice, AfterAChanceOneOnlyFourOldOnesFollowAndAfterAForcedOneFive) {
  Songs songs(1000);
  songs.markRecent(3);
  ASSERT_EQ(songs.choose(3, kRule), 3);
  for (int i = 0; i < 4; ++i) ASSERT_EQ(songs.choose(500, kRule), 500);
  EXPECT_EQ(songs.choose(500, kRule), 3);
  for (int i = 0; i < 5; ++i) ASSERT_EQ(songs.choose(500, kRule), 500);
  EXPECT_EQ(songs.choose(500, kRule), 3);
}

TEST(RandomChoice, AForcedOneIsUnplayedWhileThereIsSuchAOne) {
  Songs songs(10);
  songs.markRecent(3);
  songs.markRecent(8);
  songs.list.setPlayed(3, true);
  songs.recentCount = 5;
  EXPECT_EQ(songs.choose(7, kRule), 8);
}

TEST(RandomChoice, APlayedRecentOneWillDoWhenNoUnplayedOneIsLeft) {
  Songs songs(10);
  songs.markRecent(3);
  songs.list.setPlayed(3, true);
  songs.recentCount = 5;
  EXPECT_EQ(songs.choose(7, kRule), 3);
}

TEST(RandomChoice, WithTheRuleOffNothingIsCounted) {
  Songs songs(10);
  songs.markRecent(3);
  songs.recentCount = 5;
  EXPECT_EQ(songs.choose(7, {.enabled = false, .after = 5}), 7);
  EXPECT_EQ(songs.recentCount, 5);
}

TEST(RandomChoice, ComesToAnEndWhenTheLastRecentEntryWasRemoved) {
  Songs songs(10);
  songs.list.anyRecent = true;
  songs.recentCount = 5;
  EXPECT_EQ(songs.choose(7, kRule), 7);
  EXPECT_EQ(songs.recentCount, 0);
}

TEST(RandomChoice, ADrawAboveThePlayedTagsFails) {
  Songs songs(20000);
  EXPECT_THROW(songs.choose(10001), base::Failure);
  EXPECT_EQ(songs.choose(10000), 10000);
}

TEST(RandomChoice, FindsTheOneUnplayedOfTenThousandWithinAMillisecondOnAverage) {
  Songs songs(10001);
  for (int i = 0; i < 10001; ++i) songs.list.setPlayed(i, true);
  constexpr int kDraws = 200;
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < kDraws; ++i) {
    const int only = i * 50;
    songs.list.setPlayed(only, false);
    ASSERT_EQ(songs.choose(drawPosition(songs.random, 10001)), only);
    songs.list.setPlayed(only, true);
  }
  const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
  RecordProperty("milliseconds_each", std::to_string(taken.count() / kDraws));
#if defined(NDEBUG) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
  EXPECT_LT(taken.count() / kDraws, 1.0);
#endif
}

}  // namespace
}  // namespace nerolith::player
