#include "endtoend/trial.h"

#include <gtest/gtest.h>

namespace nerolith::endtoend {
namespace {

TEST(Trial, AFaultOnAQuietMachineFailsAtOnce) {
  int runs = 0;
  const Verdict verdict = tryUpToThreeTimes([&] { return ++runs, Outcome{{"late"}, {}, {}}; });
  EXPECT_FALSE(verdict.passed);
  EXPECT_EQ(runs, 1);
}

TEST(Trial, ASpoiltRunIsRepeatedAndCounted) {
  int runs = 0;
  const Verdict verdict = tryUpToThreeTimes([&] {
    return ++runs == 1 ? Outcome{{"late"}, {"stalled"}, {}} : Outcome{};
  });
  EXPECT_TRUE(verdict.passed);
  EXPECT_EQ(runs, 2);
  EXPECT_EQ(verdict.spoilt, 1);
}

TEST(Trial, ThreeSpoiltRunsFail) {
  const Verdict verdict = tryUpToThreeTimes([] { return Outcome{{"late"}, {"stalled"}, {}}; });
  EXPECT_FALSE(verdict.passed);
  EXPECT_EQ(verdict.spoilt, 3);
}

}  // namespace
}  // namespace nerolith::endtoend
