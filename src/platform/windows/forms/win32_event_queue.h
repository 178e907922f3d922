// The event queue of the Windows program.
#pragma once

#include <deque>
#include <functional>
#include <memory>

#include "platform/event_queue.h"
#include "platform/windows/forms/window.h"

namespace nerolith::windows_forms {

/// The message loop. Posted calls run when no message waits; inside message boxes and menus, where
/// the system runs its own loop, a timer lets them run. Lives as long as the program, on the
/// user-interface thread.
class Win32EventQueue : public platform::EventQueue {
 public:
  /// Sees each message before its window; true: the message is done with.
  using Filter = std::function<bool(const MSG& message)>;

  Win32EventQueue();
  ~Win32EventQueue() override;

  void setFilter(Filter filter) { filter_ = std::move(filter); }

  void runWaitingEvents() override;
  void post(std::function<void()> call) override;
  void quit() override { PostQuitMessage(0); }

  /// Runs until `quit`; returns the program's exit code.
  int run();

 private:
  class Alarm;

  /// False once the program is to end.
  bool handleWaiting(int& exitCode);
  void handle(const MSG& message);
  bool runNext();

  Filter filter_;
  std::deque<std::function<void()>> calls_;
  std::unique_ptr<Alarm> alarm_;
};

}  // namespace nerolith::windows_forms
