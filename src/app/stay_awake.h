// When the machine has to stay awake.
#pragma once

#include <optional>

#include "base/signal.h"
#include "controls/timer.h"
#include "platform/power_request.h"
#include "player/player.h"
#include "player/recording_link.h"

namespace nerolith::app {

/// Why it has to, or nothing: a song plays (a paused or ended one does not), or a recording runs.
std::optional<platform::PowerRequest::Why> reasonToStayAwake(bool playing, bool recording);

/// Looks after each tick of Timer1 and asks for no more than changes. Made after the player.
class StayAwake {
 public:
  StayAwake(platform::PowerRequest& power, controls::Timer& timer1, const player::Player& player,
            const player::RecordingLink& recording);
  ~StayAwake() { end(); }
  StayAwake(const StayAwake&) = delete;
  StayAwake& operator=(const StayAwake&) = delete;

  /// The player is closed: nothing is held any more.
  void end();

 private:
  void follow();
  void take(std::optional<platform::PowerRequest::Why> reason);

  platform::PowerRequest& power_;
  const player::Player& player_;
  const player::RecordingLink& recording_;
  std::optional<platform::PowerRequest::Why> held_;
  base::Subscription subscription_;
};

}  // namespace nerolith::app
