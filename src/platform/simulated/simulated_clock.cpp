#include "platform/simulated/simulated_clock.h"

namespace nerolith::platform::simulated {
namespace {

constexpr std::chrono::nanoseconds kDay = std::chrono::hours(24);

}  // namespace

double SimulatedClock::secondsSinceMidnight() const {
  const std::chrono::duration<double> seconds = sinceFirstMidnight() % kDay;
  timeline_.stall(readingTime_);
  return seconds.count();
}

double SimulatedClock::today() const {
  return firstDay_ + static_cast<double>(sinceFirstMidnight() / kDay);
}

void SimulatedClock::set(double day, std::chrono::nanoseconds sinceMidnight) {
  // Counted from a midnight far enough back that the sum never gets negative.
  const auto passed = timeline_.now() / kDay + 1;
  firstDay_ = day - static_cast<double>(passed);
  offset_ = sinceMidnight + passed * kDay - timeline_.now();
}

}  // namespace nerolith::platform::simulated
