#include "endtoend/busy_watch.h"

#include <fstream>
#include <string>

namespace nerolith::endtoend {

BusyWatch::BusyWatch() : first_(read()) {}

double BusyWatch::idle() const {
  const Times now = read();
  if (now.all <= first_.all) return 1;
  return static_cast<double>(now.idle - first_.idle) / static_cast<double>(now.all - first_.all);
}

BusyWatch::Times BusyWatch::read() {
  // user, nice, system, idle, iowait, irq, softirq, steal: the rest is counted in these already.
  constexpr int kFields = 8, kIdle = 3, kWaiting = 4;
  std::ifstream stream("/proc/stat");
  std::string word;
  stream >> word;
  Times times;
  for (int field = 0; field < kFields; ++field) {
    std::uint64_t ticks = 0;
    if (!(stream >> ticks)) return {};
    times.all += ticks;
    if (field == kIdle || field == kWaiting) times.idle += ticks;
  }
  return times;
}

}  // namespace nerolith::endtoend
