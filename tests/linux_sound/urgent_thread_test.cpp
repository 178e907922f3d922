#include "platform/linux/sound/urgent_thread.h"

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/resource.h>

#include <thread>

namespace nerolith::sound_tests {
namespace {

struct Urgency {
  int policy = 0;
  int nice = 0;

  bool raised() const { return (policy & ~SCHED_RESET_ON_FORK) == SCHED_RR || nice < 0; }
};

Urgency ofThisThread() {
  Urgency urgency;
  urgency.policy = ::sched_getscheduler(0);
  urgency.nice = ::getpriority(PRIO_PROCESS, 0);
  return urgency;
}

/// A container may keep even root from it: only trying tells.
bool mayRaise() {
  bool may = false;
  std::thread([&] { may = ::setpriority(PRIO_PROCESS, 0, -1) == 0; }).join();
  return may;
}

TEST(UrgentThread, GoesBeforeOthersWhereTheUserHasTheRight) {
  const Urgency before = ofThisThread();
  Urgency raised;
  Urgency child;
  std::thread([&] {
    sound::makeThisThreadUrgent();
    raised = ofThisThread();
    std::thread([&] { child = ofThisThread(); }).join();
  }).join();
  EXPECT_EQ(raised.raised(), mayRaise() || before.raised());
  if (raised.nice == before.nice) {
    EXPECT_EQ(child.raised(), before.raised());
  }
  EXPECT_EQ(ofThisThread().raised(), before.raised());
}

}  // namespace
}  // namespace nerolith::sound_tests
