#include "platform/linux/sound/server_loop.h"

namespace nerolith::sound {

ThreadedLoop::ThreadedLoop(const char* name) : loop_(pa_threaded_mainloop_new()) {
  pa_threaded_mainloop_set_name(loop_, name);
  pa_threaded_mainloop_start(loop_);
}

ThreadedLoop::~ThreadedLoop() {
  pa_threaded_mainloop_stop(loop_);
  pa_threaded_mainloop_free(loop_);
}

PolledLoop::PolledLoop() : loop_(pa_mainloop_new()) {}

PolledLoop::~PolledLoop() { pa_mainloop_free(loop_); }

/// What one event leads to, an answer to the server mostly, is due as well.
void PolledLoop::work() {
  constexpr int kRounds = 100;  // a server that never falls silent must not hold the caller
  for (int round = 0; round < kRounds && pa_mainloop_iterate(loop_, 0, nullptr) > 0; ++round) {
  }
}

}  // namespace nerolith::sound
