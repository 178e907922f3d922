// The queue of the user-interface thread.
#pragma once

#include <functional>

namespace nerolith::platform {

class EventQueue {
 public:
  virtual ~EventQueue() = default;

  /// Lets waiting events (timers, input, paint) run, then returns.
  virtual void runWaitingEvents() = 0;
  /// Runs `call` on the user-interface thread once it is idle, after the calls posted before.
  virtual void post(std::function<void()> call) = 0;
  /// Ends the program once the current event is done.
  virtual void quit() = 0;
};

}  // namespace nerolith::platform
