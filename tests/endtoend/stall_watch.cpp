#include "endtoend/stall_watch.h"

namespace nerolith::endtoend {

using std::chrono::milliseconds;

StallWatch::StallWatch() : thread_([this](const std::stop_token& stop) { watch(stop); }) {}

std::vector<milliseconds> StallWatch::stalls() const {
  const std::lock_guard lock(mutex_);
  return stalls_;
}

void StallWatch::watch(const std::stop_token& stop) {
  auto before = std::chrono::steady_clock::now();
  while (!stop.stop_requested()) {
    std::this_thread::sleep_for(milliseconds(5));
    const auto now = std::chrono::steady_clock::now();
    const auto slept = std::chrono::duration_cast<milliseconds>(now - before);
    before = now;
    if (slept < milliseconds(40)) continue;
    const std::lock_guard lock(mutex_);
    stalls_.push_back(slept);
  }
}

}  // namespace nerolith::endtoend
