// A periodic event.
#pragma once

#include <chrono>

#include "base/signal.h"

namespace nerolith::controls {

/// While enabled, the window host raises `tick` every interval, on the user-interface thread, never
/// inside another tick of the same timer; ticks missed while the thread was busy are not made up.
class Timer {
 public:
  explicit Timer(std::chrono::milliseconds interval, bool enabled = true)
      : interval_(interval), enabled_(enabled) {}

  std::chrono::milliseconds interval() const { return interval_; }

  bool enabled() const { return enabled_; }
  void setEnabled(bool enabled) {
    if (enabled_ == enabled) return;
    enabled_ = enabled;
    changed.raise();
  }

  base::Signal<> tick;
  base::Signal<> changed;

 private:
  std::chrono::milliseconds interval_;
  bool enabled_;
};

}  // namespace nerolith::controls
