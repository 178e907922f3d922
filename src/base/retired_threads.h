// Threads whose owner is gone.
#pragma once

#include <atomic>
#include <chrono>
#include <memory>
#include <thread>
#include <vector>

namespace nerolith::base {

/// A deck must fall silent and go at once, and a count must end at once, even when its thread hangs
/// in a network share that died. So they hand their threads over here. Threads that end are joined
/// in passing; at the end of the program the rest get some time (half a second, unless a backend
/// needs more) and are then left to the system: they own all they touch. User-interface thread
/// only.
class RetiredThreads {
 public:
  explicit RetiredThreads(std::chrono::milliseconds patience = std::chrono::milliseconds(500))
      : patience_(patience) {}
  ~RetiredThreads();
  RetiredThreads(const RetiredThreads&) = delete;
  RetiredThreads& operator=(const RetiredThreads&) = delete;

  /// `ended` becomes true as the thread's last deed.
  void retire(std::thread thread, std::shared_ptr<const std::atomic<bool>> ended);
  /// Joins those that have ended.
  void reap();
  std::size_t waiting() const { return threads_.size(); }

 private:
  struct Retired {
    std::thread thread;
    std::shared_ptr<const std::atomic<bool>> ended;
  };

  std::chrono::milliseconds patience_;
  std::vector<Retired> threads_;
};

}  // namespace nerolith::base
