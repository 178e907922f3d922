// The time of day and the date.
#pragma once

namespace nerolith::platform {

/// Local time. Never fails.
class Clock {
 public:
  virtual ~Clock() = default;

  /// Seconds since midnight with their fraction, 0 <= s < 86400.
  virtual double secondsSinceMidnight() const = 0;
  /// Today as a whole day number: days since 30 December 1899.
  virtual double today() const = 0;
};

}  // namespace nerolith::platform
