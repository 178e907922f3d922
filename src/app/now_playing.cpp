#include "app/now_playing.h"

#include <cmath>

#include "player/next_track.h"

namespace nerolith::app {
namespace {

/// Length of a tick, and how far a position may be off it: a busy machine holds ticks up.
constexpr double kTick = 0.1;
constexpr double kLeap = 0.5;
/// Half a second without progress.
constexpr int kStillTicks = 5;
/// A decoder's last samples may be short of the length that it told.
constexpr double kEnd = 0.02;

}  // namespace

platform::PlayState playStateOf(const player::Decks& decks, const player::PlayerState& state,
                                double position) {
  const player::Deck* deck = decks.current();
  if (deck == nullptr || !deck->loaded()) return platform::PlayState::Stopped;
  if (base::isSet(state.paused)) return platform::PlayState::Paused;
  const bool ended = deck->duration > 0 && position >= deck->duration - kEnd;
  return ended ? platform::PlayState::Stopped : platform::PlayState::Playing;
}

bool canGoNext(const forms::MainForm& form) {
  const int count = form.List1.count();
  if (count == 0) return false;
  const int current = form.List1.listIndex();
  const bool loop = form.Check1.value() != 0;
  if (form.Option1.value()) return loop && current != -1;
  return form.Option3.value() || player::nextInOrder(current, count, loop).has_value();
}

platform::Repeat repeatOf(const forms::MainForm& form) {
  if (form.Check1.value() == 0) return platform::Repeat::Off;
  return form.Option1.value() ? platform::Repeat::Song : platform::Repeat::List;
}

double loudnessOf(std::int32_t hundredthsOfDecibel) {
  return std::round(100 * std::pow(10.0, hundredthsOfDecibel / 2000.0)) / 100;
}

bool LeapWatch::leapt(std::uint64_t song, double position, bool playing) {
  const bool same = song == song_;
  const double moved = position - position_;
  song_ = song;
  position_ = position;
  const bool stood = still_ >= kStillTicks;
  const bool moves = std::abs(moved) >= kTick / 10;
  still_ = same && playing && !moves ? still_ + 1 : 0;
  if (!same || song == 0) return false;
  if (std::abs(moved - (playing && moves ? kTick : 0)) > kLeap) return true;
  return stood && playing && moves;
}

}  // namespace nerolith::app
