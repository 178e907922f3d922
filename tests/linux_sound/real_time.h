// Waiting, for the tests that run as fast as the clock.
#pragma once

#include <chrono>
#include <thread>

namespace nerolith::sound_tests {

using Clock = std::chrono::steady_clock;

inline void pass(double seconds) {
  std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
}

inline double secondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

/// Whether `done()` comes true within the time; asked every 5 ms.
template <class Done>
bool within(double seconds, Done done) {
  const auto start = Clock::now();
  while (!done()) {
    if (secondsSince(start) > seconds) return false;
    pass(0.005);
  }
  return true;
}

}  // namespace nerolith::sound_tests
