// Moments as day numbers of local time.
#pragma once

#include <ctime>

namespace nerolith::system {

/// A moment of local time: whole days since 30 December 1899, and seconds since midnight with
/// their fraction, 0 <= s < 86400.
struct LocalMoment {
  double day = 0;
  double seconds = 0;
};

LocalMoment localMoment(const timespec& moment);

}  // namespace nerolith::system
