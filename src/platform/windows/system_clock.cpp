#include "platform/windows/system_clock.h"

#include "platform/windows/local_day.h"

namespace nerolith::windows {
namespace {

LocalMoment now() {
  FILETIME moment{};
  GetSystemTimeAsFileTime(&moment);
  return localMoment(moment);
}

}  // namespace

double SystemClock::secondsSinceMidnight() const { return now().seconds; }

double SystemClock::today() const { return now().day; }

}  // namespace nerolith::windows
