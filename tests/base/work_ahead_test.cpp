#include "base/work_ahead.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cerrno>
#include <future>
#include <mutex>
#include <set>
#include <thread>

#include "base/failure.h"

namespace nerolith::base {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto kLong = 20s;  // never waited for unless something is wrong

std::vector<std::string> numbers(int count) {
  std::vector<std::string> paths;
  paths.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) paths.push_back(std::to_string(i));
  return paths;
}

/// Asks until `count` have come.
std::vector<double> takeAll(WorkAhead& work, std::size_t count) {
  std::vector<double> all;
  while (all.size() < count) {
    const std::vector<double> some = work.take(kLong);
    all.insert(all.end(), some.begin(), some.end());
  }
  return all;
}

/// A gate that jobs stand before, opened at the latest with the test's end.
struct Gate {
  std::promise<void> promise;
  std::shared_future<void> opened = promise.get_future().share();
  bool open = false;
  void unlock() {
    if (!open) promise.set_value();
    open = true;
  }
  ~Gate() { unlock(); }
};

struct WorkAheadTest : testing::Test {
  SpareThreads threads;
  Gate gate;
};

TEST_F(WorkAheadTest, HandsOutTheNumbersInOrder) {
  auto job = [](const std::string& path, JobWatch&) { return std::stod(path); };
  WorkAhead work(threads, numbers(5000), job, 4);
  const std::vector<double> all = takeAll(work, 5000);
  for (int i = 0; i < 5000; ++i) ASSERT_EQ(all[static_cast<std::size_t>(i)], i);
  EXPECT_TRUE(work.take(kLong).empty());
}

TEST_F(WorkAheadTest, HandsOutOnlyWhatNothingIsMissingBefore) {
  auto job = [opened = gate.opened](const std::string& path, JobWatch&) {
    if (path == "2") opened.wait();
    return std::stod(path);
  };
  WorkAhead work(threads, numbers(6), job, 2);
  std::vector<double> first;
  while (first.size() < 2)
    for (const double number : work.take(1ms)) first.push_back(number);
  EXPECT_EQ(first, (std::vector<double>{0, 1}));
  EXPECT_TRUE(work.take(30ms).empty());
  gate.unlock();
  EXPECT_EQ(takeAll(work, 4), (std::vector<double>{2, 3, 4, 5}));
}

TEST_F(WorkAheadTest, AFailureComesInItsTurnAndNothingBehindItIsBegun) {
  std::atomic<int> begun{0};
  auto job = [&begun](const std::string& path, JobWatch&) {
    ++begun;
    if (path == "3") throw Failure("no sound", 7);
    return std::stod(path);
  };
  WorkAhead work(threads, numbers(100000), job, 1);
  EXPECT_EQ(takeAll(work, 3), (std::vector<double>{0, 1, 2}));
  for (int again = 0; again < 2; ++again) {
    try {
      work.take(kLong);
      FAIL() << "no failure";
    } catch (const Failure& failure) {
      EXPECT_STREQ(failure.what(), "no sound");
      EXPECT_EQ(failure.code(), 7);
    }
  }
  EXPECT_EQ(begun, 4);
}

TEST_F(WorkAheadTest, WhateverAJobThrowsIsAFailureThatNamesTheFile) {
  auto job = [](const std::string&, JobWatch&) -> double { throw std::bad_alloc(); };
  WorkAhead work(threads, {"/music/a.mp3"}, job, 1);
  try {
    work.take(kLong);
    FAIL() << "no failure";
  } catch (const Failure& failure) {
    EXPECT_EQ(std::string(failure.what()).rfind("/music/a.mp3", 0), 0U) << failure.what();
  }
}

TEST_F(WorkAheadTest, AFileThatDoesNotAnswerFails) {
  auto job = [opened = gate.opened](const std::string&, JobWatch&) {
    opened.wait();
    return 1.0;
  };
  WorkAhead work(threads, {"/dead/a.mp3"}, job, 1, 60ms);
  const auto began = Clock::now();
  try {
    while (Clock::now() < began + kLong) EXPECT_TRUE(work.take(5ms).empty());
    FAIL() << "no failure";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.code(), ETIMEDOUT);
    EXPECT_STREQ(failure.what(), "/dead/a.mp3: the disk or network share does not answer");
  }
  EXPECT_GE(Clock::now() - began, 60ms);
}

TEST_F(WorkAheadTest, AFileThatIsReadSlowlyIsWaitedFor) {
  const auto begun = std::make_shared<std::promise<JobWatch*>>();
  auto job = [opened = gate.opened, begun](const std::string&, JobWatch& watch) {
    begun->set_value(&watch);
    opened.wait();
    return 1.0;
  };
  WorkAhead work(threads, {"/slow/a.mp3"}, job, 1, 300ms);
  JobWatch* watch = begun->get_future().get();
  const auto until = Clock::now() + 900ms;
  while (Clock::now() < until) {
    watch->progress += 512;
    ASSERT_TRUE(work.take(1ms).empty());
  }
  gate.unlock();
  EXPECT_EQ(takeAll(work, 1), std::vector<double>{1});
}

TEST_F(WorkAheadTest, ItsEndWaitsForNoStuckFileAndTellsTheJobs) {
  const auto begun = std::make_shared<std::promise<void>>();
  const auto told = std::make_shared<std::promise<bool>>();
  auto job = [opened = gate.opened, begun, told](const std::string&, JobWatch& watch) {
    begun->set_value();
    opened.wait();
    told->set_value(watch.abandoned);
    return 1.0;
  };
  auto work = std::make_unique<WorkAhead>(threads, numbers(10), job, 1);
  begun->get_future().get();
  const auto began = Clock::now();
  work.reset();
  EXPECT_LT(Clock::now() - began, 1s);
  EXPECT_EQ(threads.atWork(), 1U);
  gate.unlock();
  auto answer = told->get_future();
  ASSERT_EQ(answer.wait_for(kLong), std::future_status::ready);
  EXPECT_TRUE(answer.get()) << "and no second file is begun: its promise would fail";
}

TEST_F(WorkAheadTest, ItsEndWaitsAMomentForFilesThatAreBeingRead) {
  std::atomic<bool> closed{false};
  const auto begun = std::make_shared<std::promise<void>>();
  auto job = [&closed, begun](const std::string&, JobWatch& watch) {
    begun->set_value();
    while (!watch.abandoned) std::this_thread::sleep_for(1ms);
    closed = true;
    return 1.0;
  };
  auto work = std::make_unique<WorkAhead>(threads, std::vector<std::string>{"a"}, job, 1);
  begun->get_future().get();
  work.reset();
  EXPECT_TRUE(closed);
}

TEST_F(WorkAheadTest, UsesSeveralThreads) {
  std::mutex mutex;
  std::set<std::thread::id> seen;
  auto job = [&](const std::string&, JobWatch&) {
    std::unique_lock lock(mutex);
    seen.insert(std::this_thread::get_id());
    lock.unlock();
    for (int i = 0; i < 10000; ++i) {
      std::this_thread::sleep_for(1ms);
      lock.lock();
      if (seen.size() == 3) break;
      lock.unlock();
    }
    return 1.0;
  };
  WorkAhead work(threads, numbers(3), job, 8);
  EXPECT_EQ(takeAll(work, 3).size(), 3U);
  EXPECT_EQ(seen.size(), 3U) << "one for each file is enough";
}

TEST_F(WorkAheadTest, NothingToDoIsDone) {
  WorkAhead work(
      threads, {}, [](const std::string&, JobWatch&) { return 1.0; }, 2);
  EXPECT_TRUE(work.take(kLong).empty());
}

}  // namespace
}  // namespace nerolith::base
