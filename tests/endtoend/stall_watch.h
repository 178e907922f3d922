// Notices when the machine did not let anything run.
#pragma once

#include <chrono>
#include <mutex>
#include <stop_token>
#include <thread>
#include <vector>

namespace nerolith::endtoend {

/// From construction on, a thread asks for 5 ms of sleep again and again and notes when it got
/// 40 ms or more: then a timer of the player may have been late without its fault.
class StallWatch {
 public:
  StallWatch();

  /// How long it was held up, each time, since construction.
  std::vector<std::chrono::milliseconds> stalls() const;

 private:
  void watch(const std::stop_token& stop);

  mutable std::mutex mutex_;
  std::vector<std::chrono::milliseconds> stalls_;
  std::jthread thread_;
};

}  // namespace nerolith::endtoend
