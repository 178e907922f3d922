// What plays, as the desktop is told.
#pragma once

#include "forms/main_form.h"
#include "platform/media_controls.h"
#include "player/decks.h"
#include "player/player_state.h"

namespace nerolith::app {

/// Playing while the song of the current deck can be heard to go on, at `position` seconds. A song
/// that came to its end, with nothing that followed it, is stopped.
platform::PlayState playStateOf(const player::Decks& decks, const player::PlayerState& state,
                                double position);

/// Whether the Play Next button would start something.
bool canGoNext(const forms::MainForm& form);

platform::Repeat repeatOf(const forms::MainForm& form);

/// The loudness that a deck's level leaves, as a factor of hundredths.
double loudnessOf(std::int32_t hundredthsOfDecibel);

/// Tells a leap of the position from playing on. Asked once a tick.
class LeapWatch {
 public:
  /// `position` of the song number `song`, in seconds. True when it is elsewhere than playing, or
  /// resting, for a tick leads to; and when it goes on after it stood still though it played (the
  /// sound server was away). Another song is no leap.
  bool leapt(std::uint64_t song, double position, bool playing);

 private:
  std::uint64_t song_ = 0;
  double position_ = 0;
  int still_ = 0;  // ticks in a row without progress
};

}  // namespace nerolith::app
