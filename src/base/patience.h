// Tells something slow from something dead.
#pragma once

#include <chrono>
#include <cstdint>

namespace nerolith::base {

/// How long to wait for a job whose progress can be seen. A disk that is slow answers a little at a
/// time and is waited for; one that is dead does not answer at all.
class Patience {
 public:
  using Clock = std::chrono::steady_clock;
  struct Limits {
    std::chrono::milliseconds standstill{5000};  // without any progress
    std::chrono::milliseconds inAll{10000};      // however it goes on
  };

  /// Waiting begins at `now`.
  Patience(Limits limits, Clock::time_point now) : limits_(limits), began_(now), moved_(now) {}

  /// Whether waiting on would be in vain: `progress` stood still for too long, or it takes too long
  /// altogether. Asked every now and then, at least ten times within a standstill.
  bool over(std::uint64_t progress, Clock::time_point now) {
    if (progress != progress_) {
      progress_ = progress;
      moved_ = now;
    }
    return now - moved_ >= limits_.standstill || now - began_ >= limits_.inAll;
  }

 private:
  Limits limits_;
  Clock::time_point began_, moved_;
  std::uint64_t progress_ = 0;
};

}  // namespace nerolith::base
