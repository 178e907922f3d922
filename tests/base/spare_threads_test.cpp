#include "base/spare_threads.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <thread>

namespace nerolith::base {
namespace {

using namespace std::chrono_literals;

constexpr auto kLong = 20s;  // never waited for unless something is wrong

/// Runs the work and tells on which thread.
std::thread::id threadOf(SpareThreads& threads) {
  const auto told = std::make_shared<std::promise<std::thread::id>>();
  auto id = told->get_future();
  threads.run([told] { told->set_value(std::this_thread::get_id()); });
  return id.wait_for(kLong) == std::future_status::ready ? id.get() : std::thread::id();
}

void awaitRest(const SpareThreads& threads) {
  const auto until = std::chrono::steady_clock::now() + kLong;
  while (threads.atWork() > 0 && std::chrono::steady_clock::now() < until)
    std::this_thread::sleep_for(1ms);
}

TEST(SpareThreads, OneThatIsDoneTakesTheNextWork) {
  SpareThreads threads;
  const std::thread::id first = threadOf(threads);
  EXPECT_NE(first, std::this_thread::get_id());
  for (int i = 0; i < 20; ++i) {
    awaitRest(threads);
    EXPECT_EQ(threadOf(threads), first);
  }
}

TEST(SpareThreads, WorkThatHangsDoesNotHoldUpOthers) {
  std::promise<void> gate;
  const std::shared_future<void> opened = gate.get_future().share();
  SpareThreads threads;
  threads.run([opened] { opened.wait(); });
  threads.run([opened] { opened.wait(); });
  EXPECT_NE(threadOf(threads), std::thread::id());
  EXPECT_GE(threads.atWork(), 2U);
  gate.set_value();
  awaitRest(threads);
  EXPECT_EQ(threads.atWork(), 0U);
}

TEST(SpareThreads, ItsEndWaitsForWork) {
  const auto done = std::make_shared<std::atomic<bool>>(false);
  {
    SpareThreads threads(kLong);
    threads.run([done] {
      std::this_thread::sleep_for(50ms);
      *done = true;
    });
  }
  EXPECT_TRUE(*done);
}

TEST(SpareThreads, ItsEndLeavesWorkThatHangs) {
  std::promise<void> gate;
  const std::shared_future<void> opened = gate.get_future().share();
  const auto began = std::chrono::steady_clock::now();
  {
    SpareThreads threads(100ms);
    threads.run([opened] { opened.wait(); });
  }
  EXPECT_LT(std::chrono::steady_clock::now() - began, kLong);
  gate.set_value();
}

}  // namespace
}  // namespace nerolith::base
