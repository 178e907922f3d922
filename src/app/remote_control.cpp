#include "app/remote_control.h"

#include <algorithm>
#include <utility>

#include "app/command_line.h"
#include "base/failure_policy.h"
#include "library/song_list.h"

namespace nerolith::app {

using platform::PlayState;
using platform::Repeat;

namespace {

enum Face { kPlay = 0, kNext = 1, kPause = 2, kStop = 3 };
enum ModeWord { kSingle = 0, kAutoNext = 1, kRandom = 2 };

}  // namespace

RemoteControl::RemoteControl(platform::MediaControls& controls, forms::MainForm& form,
                             player::Player& player, char separator, WindowActions window)
    : controls_(controls),
      form_(form),
      player_(player),
      separator_(separator),
      window_(std::move(window)) {}

void RemoteControl::begin() {
  if (std::exchange(open_, true)) return;
  controls_.open(*this);
  tick();
  subscription_ = form_.Timer1.tick.subscribe([this] { tick(); });
}

void RemoteControl::end() {
  subscription_.end();
  if (std::exchange(open_, false)) controls_.close();
}

void RemoteControl::play() {
  const PlayState state = status(freshPosition()).state;
  if (state == PlayState::Paused) clickFace(kPause);
  if (state == PlayState::Stopped) clickFace(kPlay);
}

void RemoteControl::pause() {
  if (status(freshPosition()).state == PlayState::Playing) clickFace(kPause);
}

void RemoteControl::playOrPause() {
  clickFace(status(freshPosition()).state == PlayState::Stopped ? kPlay : kPause);
}

void RemoteControl::stop() { clickFace(kStop); }

void RemoteControl::next() { clickFace(kNext); }

void RemoteControl::seekBy(double seconds) {
  const double position = freshPosition();
  const platform::MediaStatus now = status(position);
  if (!now.canSeek) return;
  if (position + seconds > now.length) return next();
  seek(std::max(0.0, position + seconds));
}

void RemoteControl::seekTo(double seconds) {
  const platform::MediaStatus now = status(freshPosition());
  if (now.canSeek && seconds >= 0 && seconds <= now.length) seek(seconds);
}

void RemoteControl::seek(double seconds) {
  player_.transport().seek(seconds);
  const double position = freshPosition();
  leaps_.leapt(starts_, position, false);
  controls_.show(status(position));
  controls_.seeked(position);
}

/// A loop of the list is none in Single, and one of a song only there: the mode follows.
void RemoteControl::setRepeat(Repeat repeat) {
  const bool single = form_.Option1.value();
  if (repeat == Repeat::Song && !single) clickMode(kSingle);
  if (repeat == Repeat::List && single) clickMode(kAutoNext);
  base::endQuietly([&] { form_.Check1.setValue(repeat == Repeat::Off ? 0 : 1); });
  showAtOnce();
}

void RemoteControl::setShuffle(bool shuffle) {
  if (shuffle != form_.Option3.value()) clickMode(shuffle ? kRandom : kAutoNext);
  showAtOnce();
}

void RemoteControl::raise() { base::endQuietly(window_.comeForward); }

void RemoteControl::quit() {
  base::endQuietly([this] { form_.form.close(); });
}

void RemoteControl::openFile(const std::string& path) {
  base::endQuietly([&] { window_.openFile(path); });
  showAtOnce();
}

void RemoteControl::clickFace(std::size_t face) {
  form_.Label8[face].userClick();
  showAtOnce();
}

void RemoteControl::clickMode(std::size_t word) { form_.Label7[word].userClick(); }

/// The deck's own word: what the last tick read may be of a song before.
double RemoteControl::freshPosition() {
  double position = 0;
  base::goOn([&] {
    if (const player::Deck* deck = player_.decks().current()) position = deck->currentPosition();
  });
  return position;
}

/// A start is seen by the deck that became current. The path is taken then: a start that fails
/// changes the player's, while the old song is heard on.
void RemoteControl::followSong() {
  const player::Deck* deck = player_.decks().current();
  if (deck == nullptr || !deck->loaded()) {
    deck_ = nullptr;
    path_.clear();
    return;
  }
  const std::string& path = player_.state().songPath;
  const bool again = path != path_ && !base::isSet(deck->fadeOut);
  if (deck == deck_ && !again) return;
  deck_ = deck;
  path_ = path;
  ++starts_;
}

platform::MediaStatus RemoteControl::status(double position) const {
  platform::MediaStatus now;
  now.state = playStateOf(player_.decks(), player_.state(), position);
  now.repeat = repeatOf(form_);
  now.shuffle = form_.Option3.value();
  now.canPlay = deck_ != nullptr || form_.List1.count() > 0;
  now.canPause = now.canSeek = now.state != PlayState::Stopped;
  now.canGoNext = canGoNext(form_);
  if (deck_ == nullptr) return now;
  now.song = starts_;
  now.path = path_;
  now.title = library::displayName(splitPath(path_, separator_).name, separator_);
  now.length = deck_->duration;
  now.position = std::clamp(position, 0.0, deck_->duration);
  now.volume = loudnessOf(deck_->level().value_or(0));
  return now;
}

void RemoteControl::tick() {
  if (!open_) return;
  followSong();
  const double position = deck_ != nullptr ? deck_->position : 0;
  const platform::MediaStatus now = status(position);
  controls_.show(now);
  if (leaps_.leapt(now.song, position, now.state == PlayState::Playing)) controls_.seeked(position);
}

void RemoteControl::showAtOnce() {
  if (!open_) return;
  followSong();
  controls_.show(status(freshPosition()));
}

}  // namespace nerolith::app
