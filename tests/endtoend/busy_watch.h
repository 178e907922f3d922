// Tells whether the machine had time to spare for what a test measures.
#pragma once

#include <cstdint>

namespace nerolith::endtoend {

/// Watches the processors from construction on.
class BusyWatch {
 public:
  BusyWatch();

  /// Share of the processors' time that nobody wanted so far, 0 to 1; 1 where the system does not
  /// tell.
  double idle() const;

  /// With less than this to spare, a program that is due has to wait for others: it is late, and
  /// that says nothing about it.
  static constexpr double kEnough = 0.15;

 private:
  struct Times {
    std::uint64_t all = 0, idle = 0;
  };
  static Times read();

  Times first_;
};

}  // namespace nerolith::endtoend
