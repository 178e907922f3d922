#include "app/player_for_recording.h"

namespace nerolith::app {
namespace {

enum Face { kPlay = 0, kStop = 3 };

}  // namespace

// The faces' clicks, not the user's: they count for a disabled face too.
void PlayerForRecording::stop() { form_.Label8[kStop].click.raise(); }
void PlayerForRecording::play() { form_.Label8[kPlay].click.raise(); }

void PlayerForRecording::fadeOutCurrent() { current().fadeOut = base::kTrue; }

bool PlayerForRecording::anyFades() const {
  const player::Decks& decks = player_.decks();
  return base::isSet(decks.a.fadeOut) || base::isSet(decks.b.fadeOut);
}

bool PlayerForRecording::currentFades() const { return base::isSet(current().fadeOut); }

std::int16_t PlayerForRecording::startVolume() const { return player_.state().startVolume; }

std::int32_t PlayerForRecording::volume() const { return current().volume(); }

void PlayerForRecording::setVolume(std::int32_t hundredthsOfDecibel) {
  current().setVolume(hundredthsOfDecibel);
}

player::Deck& PlayerForRecording::current() const {
  player::Decks& decks = player_.decks();
  return base::isSet(decks.currentDeckIsA) ? decks.a : decks.b;
}

}  // namespace nerolith::app
