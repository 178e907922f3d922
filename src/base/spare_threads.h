// Threads that are kept for the next piece of work.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>

#include "base/retired_threads.h"

namespace nerolith::base {

/// To make a thread may cost more than the work that is wanted from it, and every one of some kinds
/// of work wants two: so one that is done waits for more. A piece of work that hangs keeps its
/// thread, and the next gets another. User-interface thread only.
class SpareThreads {
 public:
  /// At the end those that wait go at once; the others get `patience` and are then left to the
  /// system: the work owns all that it touches.
  explicit SpareThreads(std::chrono::milliseconds patience = std::chrono::milliseconds(500));
  ~SpareThreads();
  SpareThreads(const SpareThreads&) = delete;
  SpareThreads& operator=(const SpareThreads&) = delete;

  /// Begins the work, which throws nothing, on a thread that has none, else on a new one. Fails
  /// (`Failure`) if the system has none to spare.
  void run(std::function<void()> work);

  /// How many pieces of work are not over.
  std::size_t atWork() const;

 private:
  struct Room;

  void startThread();

  std::shared_ptr<Room> room_;  // shared with threads that may hang for longer
  RetiredThreads threads_;
};

}  // namespace nerolith::base
