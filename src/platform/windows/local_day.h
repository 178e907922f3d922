// Moments as day numbers of local time.
#pragma once

#include <windows.h>

namespace nerolith::windows {

/// A moment of local time: whole days since 30 December 1899, and seconds since midnight with
/// their fraction, 0 <= s < 86400.
struct LocalMoment {
  double day = 0;
  double seconds = 0;
};

/// With the summer time of that day, not of today, to the millisecond. Fails for a moment that no
/// calendar holds.
LocalMoment localMoment(const FILETIME& moment);

}  // namespace nerolith::windows
