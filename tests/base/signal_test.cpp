#include "base/signal.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>

namespace nerolith::base {
namespace {

TEST(Signal, CallsListenersInOrderOfSubscription) {
  Signal<int> signal;
  std::string heard;
  const auto a = signal.subscribe([&](int n) { heard += "a" + std::to_string(n); });
  const auto b = signal.subscribe([&](int n) { heard += "b" + std::to_string(n); });
  signal.raise(1);
  EXPECT_EQ(heard, "a1b1");
}

TEST(Signal, AnEndedSubscriptionIsCalledNoMore) {
  Signal<> signal;
  int calls = 0;
  {
    const auto kept = signal.subscribe([&] { ++calls; });
    signal.raise();
  }
  signal.raise();
  EXPECT_EQ(calls, 1);
}

TEST(Signal, AnEndedListenerIsDroppedAtTheNextRaise) {
  Signal<> signal;
  const auto owned = std::make_shared<int>(0);
  auto subscription = signal.subscribe([owned] { ++*owned; });
  subscription.end();
  signal.raise();
  EXPECT_FALSE(signal.hasListeners());
  EXPECT_EQ(owned.use_count(), 1);
}

TEST(Signal, AListenerMayEndItselfAndTheOneAfterIt) {
  Signal<> signal;
  std::string heard;
  Subscription first, second;
  first = signal.subscribe([&] {
    heard += "1";
    first.end();
    second.end();
  });
  second = signal.subscribe([&] { heard += "2"; });
  const auto third = signal.subscribe([&] { heard += "3"; });
  signal.raise();
  signal.raise();
  EXPECT_EQ(heard, "133");
}

TEST(Signal, AListenerAddedDuringARaiseIsFirstCalledAtTheNext) {
  Signal<> signal;
  int added = 0;
  std::vector<Subscription> subscriptions;
  subscriptions.push_back(
      signal.subscribe([&] { subscriptions.push_back(signal.subscribe([&] { ++added; })); }));
  signal.raise();
  EXPECT_EQ(added, 0);
  signal.raise();
  EXPECT_EQ(added, 1);
}

TEST(Signal, ANestedRaiseKeepsTheOuterOneWhole) {
  Signal<int> signal;
  std::string heard;
  Subscription first;
  first = signal.subscribe([&](int depth) {
    heard += "a";
    first.end();
    if (depth > 0) signal.raise(depth - 1);
  });
  const auto second = signal.subscribe([&](int) { heard += "b"; });
  const auto third = signal.subscribe([&](int) { heard += "c"; });
  signal.raise(1);
  EXPECT_EQ(heard, "abcbc");
}

TEST(Signal, AListenersExceptionPassesToTheRaiserAndTheSignalLivesOn) {
  Signal<> signal;
  int calls = 0;
  auto thrower = signal.subscribe([] { throw std::runtime_error("no"); });
  const auto counter = signal.subscribe([&] { ++calls; });
  EXPECT_THROW(signal.raise(), std::runtime_error);
  thrower.end();
  signal.raise();
  EXPECT_EQ(calls, 1);
}

TEST(Signal, ASubscriptionMayOutliveItsSignal) {
  Subscription subscription;
  {
    Signal<> signal;
    subscription = signal.subscribe([] {});
  }
  subscription.end();
}

TEST(Signal, AssigningASubscriptionEndsTheOneBefore) {
  Signal<> signal;
  std::string heard;
  Subscription subscription = signal.subscribe([&] { heard += "old"; });
  subscription = signal.subscribe([&] { heard += "new"; });
  signal.raise();
  EXPECT_EQ(heard, "new");
}

}  // namespace
}  // namespace nerolith::base
