// The time of day of a simulated machine.
#pragma once

#include <chrono>

#include "platform/clock.h"
#include "platform/simulated/timeline.h"

namespace nerolith::platform::simulated {

/// Starts at noon of day 45000 (15 March 2023) and follows the timeline, over midnights too.
class SimulatedClock : public Clock {
 public:
  explicit SimulatedClock(Timeline& timeline) : timeline_(timeline) {}

  double secondsSinceMidnight() const override;
  double today() const override;

  /// Sets date and time of day of the present moment. `day` is a whole day number.
  void set(double day, std::chrono::nanoseconds sinceMidnight);

  /// Each reading takes this long, so that a loop which does nothing but read the clock comes to
  /// its end; nothing else runs meanwhile. 0 unless set.
  void setReadingTime(std::chrono::nanoseconds length) { readingTime_ = length; }

 private:
  std::chrono::nanoseconds sinceFirstMidnight() const { return timeline_.now() + offset_; }

  Timeline& timeline_;
  double firstDay_ = 45000;
  std::chrono::nanoseconds offset_ = std::chrono::hours(12);
  std::chrono::nanoseconds readingTime_{0};
};

}  // namespace nerolith::platform::simulated
