// A connection to the user's sound server that comes back by itself.
#pragma once

#include <pulse/pulseaudio.h>

#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <string>

#include "platform/linux/sound/server_loop.h"

namespace nerolith::sound {

/// Locks a main loop's thread out for a while.
class LoopLock {
 public:
  explicit LoopLock(pa_threaded_mainloop* loop) : loop_(loop) { pa_threaded_mainloop_lock(loop_); }
  ~LoopLock() { pa_threaded_mainloop_unlock(loop_); }
  LoopLock(const LoopLock&) = delete;
  LoopLock& operator=(const LoopLock&) = delete;

 private:
  pa_threaded_mainloop* loop_;
};

/// A context, not connected yet, that names the player as the server shows it to the user.
pa_context* newPlayerContext(pa_mainloop_api* loop);

/// Nobody waits for what was asked of the server.
void dontWait(pa_operation* asked);

/// Speaks the PulseAudio protocol, which PipeWire serves too. Lifecycle: made -> open -> close, and
/// gone. It works in its loop; everything but construction, `lock` and the destructor is called
/// with the lock held, or from within the loop. A server that goes away is tried again once a
/// second.
class ServerLink {
 public:
  /// Whose connection it is; told from within the loop.
  class Owner {
   public:
    virtual ~Owner() = default;
    /// Connected, for the first time or again.
    virtual void linkReady() = 0;
    /// The connection is going down; streams on it are dead, and have to be let go of.
    virtual void linkLost() = 0;
  };

  /// Does not connect yet.
  ServerLink(Owner& owner, std::unique_ptr<ServerLoop> loop);
  ~ServerLink();
  ServerLink(const ServerLink&) = delete;
  ServerLink& operator=(const ServerLink&) = delete;

  std::unique_lock<ServerLoop> lock() const { return std::unique_lock(*loop_); }

  /// Begins to connect and does not wait.
  void open();
  /// For good. The owner has let go of its streams, and is told nothing any more.
  void close();

  /// Null while there is none.
  pa_context* context() const { return context_; }
  bool ready() const;
  /// Whether the last try to connect failed, and why.
  bool refused() const { return !refusal_.empty(); }
  const std::string& refusal() const { return refusal_; }

  /// Called by the owner whenever something changed that another thread may be waiting for.
  void changed() { loop_->changed(); }
  /// Lets the loop work until `done` holds; false when that took longer than `patience`. Not from
  /// within the loop.
  bool waitUntil(const std::function<bool()>& done, std::chrono::milliseconds patience);

  /// Lets the loop do what is due.
  void work() { loop_->work(); }

  /// Runs `work` once, that much later, within the loop. A second call replaces the first.
  void later(std::chrono::milliseconds delay, std::function<void()> work);
  /// Takes that back.
  void notLater();

 private:
  void contextChanged();
  void lose();
  void dropContext();

  Owner& owner_;
  std::unique_ptr<ServerLoop> loop_;
  pa_context* context_ = nullptr;
  pa_time_event* alarm_ = nullptr;
  std::function<void()> work_;
  std::string refusal_;
};

}  // namespace nerolith::sound
