// What drives a connection to the sound server: a thread of its own, or whoever asks.
#pragma once

#include <pulse/pulseaudio.h>

namespace nerolith::sound {

/// Events of a connection come out of a loop. All but `lock` is called with the lock held, or from
/// within an event.
class ServerLoop {
 public:
  virtual ~ServerLoop() = default;

  virtual pa_mainloop_api* api() = 0;

  /// Holds the events up; nests.
  virtual void lock() = 0;
  virtual void unlock() = 0;

  /// Something changed that `wait` may be waiting for.
  virtual void changed() = 0;
  /// Lets events happen until something may have changed. Not from within an event.
  virtual void wait() = 0;
  /// Lets happen what is due, and does not wait.
  virtual void work() = 0;
};

/// Events happen at any time, in a thread of its own. `work` leaves them to it.
class ThreadedLoop : public ServerLoop {
 public:
  /// `name` is at most 15 characters long.
  explicit ThreadedLoop(const char* name);
  ~ThreadedLoop() override;
  ThreadedLoop(const ThreadedLoop&) = delete;
  ThreadedLoop& operator=(const ThreadedLoop&) = delete;

  pa_mainloop_api* api() override { return pa_threaded_mainloop_get_api(loop_); }
  void lock() override { pa_threaded_mainloop_lock(loop_); }
  void unlock() override { pa_threaded_mainloop_unlock(loop_); }
  void changed() override { pa_threaded_mainloop_signal(loop_, 0); }
  void wait() override { pa_threaded_mainloop_wait(loop_); }
  void work() override {}

 private:
  pa_threaded_mainloop* loop_;
};

/// Events happen inside `wait` and `work` only, in the one thread that uses it: nothing is woken
/// for them. For a connection that is looked at regularly anyhow.
class PolledLoop : public ServerLoop {
 public:
  PolledLoop();
  ~PolledLoop() override;
  PolledLoop(const PolledLoop&) = delete;
  PolledLoop& operator=(const PolledLoop&) = delete;

  pa_mainloop_api* api() override { return pa_mainloop_get_api(loop_); }
  void lock() override {}
  void unlock() override {}
  void changed() override {}
  void wait() override { pa_mainloop_iterate(loop_, 1, nullptr); }
  void work() override;

 private:
  pa_mainloop* loop_;
};

}  // namespace nerolith::sound
