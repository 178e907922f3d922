// Waits for the end of a fade-out before the recording is stopped.
#pragma once

#include <functional>

#include "base/signal.h"
#include "controls/timer.h"
#include "platform/clock.h"

namespace nerolith::recording {

/// The wait is a timer's: the player's timers, input and painting go on meanwhile, and nothing is
/// nested, so that whatever happens during it can begin it anew or end it. All handed over
/// outlives it.
class FadeStop {
 public:
  /// `fadeLength` is asked at each look, in seconds; `over` is called once for each wait.
  FadeStop(controls::Timer& watch, const platform::Clock& clock, std::function<float()> fadeLength,
           std::function<void()> over);
  FadeStop(const FadeStop&) = delete;
  FadeStop& operator=(const FadeStop&) = delete;

  /// From now on until half a second after the fade's length. A wait that is under way begins anew.
  void begin();
  /// Ends the wait without a call.
  void cancel();
  bool waiting() const { return watch_.enabled(); }

 private:
  void look();

  controls::Timer& watch_;
  const platform::Clock& clock_;
  std::function<float()> fadeLength_;
  std::function<void()> over_;
  float begun_ = 0;
  base::Subscription subscription_;
};

}  // namespace nerolith::recording
