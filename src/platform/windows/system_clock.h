// The system's time of day.
#pragma once

#include "platform/clock.h"

namespace nerolith::windows {

class SystemClock : public platform::Clock {
 public:
  double secondsSinceMidnight() const override;
  double today() const override;
};

}  // namespace nerolith::windows
