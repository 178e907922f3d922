// Waiting for what another program does.
#pragma once

#include <chrono>
#include <functional>
#include <thread>

namespace nerolith::endtoend {

/// Asks again every 10 ms until it is so; false when it is not within so many seconds.
inline bool waitUntil(double longest, const std::function<bool()>& ready) {
  const auto until = std::chrono::steady_clock::now() + std::chrono::duration<double>(longest);
  while (!ready()) {
    if (std::chrono::steady_clock::now() > until) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  return true;
}

}  // namespace nerolith::endtoend
