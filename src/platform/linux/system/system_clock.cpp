#include "platform/linux/system/system_clock.h"

#include "platform/linux/system/local_day.h"

namespace nerolith::system {
namespace {

LocalMoment now() {
  timespec moment{};
  clock_gettime(CLOCK_REALTIME, &moment);
  return localMoment(moment);
}

}  // namespace

double SystemClock::secondsSinceMidnight() const { return now().seconds; }

double SystemClock::today() const { return now().day; }

}  // namespace nerolith::system
