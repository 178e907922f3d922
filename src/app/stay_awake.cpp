#include "app/stay_awake.h"

#include "app/now_playing.h"

namespace nerolith::app {

using Why = platform::PowerRequest::Why;

std::optional<Why> reasonToStayAwake(bool playing, bool recording) {
  if (recording) return Why::Recording;
  return playing ? std::optional(Why::Playing) : std::nullopt;
}

StayAwake::StayAwake(platform::PowerRequest& power, controls::Timer& timer1,
                     const player::Player& player, const player::RecordingLink& recording)
    : power_(power),
      player_(player),
      recording_(recording),
      subscription_(timer1.tick.subscribe([this] { follow(); })) {}

void StayAwake::end() {
  subscription_.end();
  take(std::nullopt);
}

void StayAwake::follow() {
  const player::Deck* deck = player_.decks().current();
  const double position = deck != nullptr ? deck->position : 0;
  const bool playing =
      playStateOf(player_.decks(), player_.state(), position) == platform::PlayState::Playing;
  take(reasonToStayAwake(playing, recording_.recording()));
}

void StayAwake::take(std::optional<Why> reason) {
  if (reason == held_) return;
  if (held_) power_.release();
  held_ = reason;
  if (held_) power_.hold(*held_);
}

}  // namespace nerolith::app
