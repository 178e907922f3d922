// Counts how often a signal is raised.
#pragma once

#include "base/signal.h"

namespace nerolith::controls {

class EventCount {
 public:
  template <typename... Args>
  explicit EventCount(base::Signal<Args...>& signal)
      : subscription_(signal.subscribe([this](Args...) { ++count_; })) {}
  EventCount(const EventCount&) = delete;
  EventCount& operator=(const EventCount&) = delete;

  int operator()() const { return count_; }

 private:
  int count_ = 0;
  base::Subscription subscription_;
};

}  // namespace nerolith::controls
