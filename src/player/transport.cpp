#include "player/transport.h"

#include <algorithm>
#include <utility>

#include "base/failure_policy.h"
#include "player/crossfade.h"

namespace nerolith::player {
namespace {

/// Head-room for the automatic volume correction.
constexpr std::int16_t kCorrectedStartVolume = -500;

enum Lamp { kPlayingLamp = 0, kPausedLamp = 2 };

}  // namespace

Transport::Transport(forms::MainForm& form, library::SongList& songs, settings::LiveSettings& live,
                     PlayerState& state, Decks& decks, TransportDoors doors)
    : form_(form),
      songs_(songs),
      live_(live),
      state_(state),
      decks_(decks),
      doors_(std::move(doors)) {
  bind();
}

void Transport::bind() {
  subscriptions_.push_back(form_.List1.dblClick.subscribe([this] { list1_DblClick(); }));
  subscriptions_.push_back(form_.Command1.click.subscribe([this] { play(); }));
  subscriptions_.push_back(form_.Command2.click.subscribe([this] { stop(); }));
  subscriptions_.push_back(form_.Command3.click.subscribe([this] { playNextClick(); }));
  subscriptions_.push_back(form_.Command4.click.subscribe([this] { pauseOrResume(); }));
  subscriptions_.push_back(form_.HScroll1.scroll.subscribe([this] { sliderScrolled(); }));
  subscriptions_.push_back(form_.HScroll1.change.subscribe([this] { sliderChanged(); }));
}

void Transport::list1_DblClick() {
  if (!form_.Command3.enabled()) return;
  form_.Command3.setEnabled(false);
  ++starts_;
  if (!base::goOn([this] { loadAndStart(); })) failedStart();
}

void Transport::loadAndStart() {
  if (songs_.listExhausted) {
    songs_.listExhausted = false;
    songs_.clearPlayedTags();
  }
  if (!base::isSet(state_.manualStartSecond)) state_.manualStartFirst = base::kTrue;
  state_.manualStartSecond = base::kTrue;

  songs_.readListCount();
  const int position = form_.List1.listIndex();
  songs_.setPlayed(position, true);
  form_.List1.setSelected(position, true);
  songs_.text1().setText(form_.List1.item(position));
  form_.Label9.setCaption(library::displayName(songs_.text1().text(), doors_.separator));
  state_.songPath = songs_.pathOf(songs_.text1().text());

  decks_.setMixLatches();
  decks_.loadOther(state_.songPath);
  if (!startCurrentDeck()) return;
  songs_.setPlayingPosition(position);
  moveThumbToStart();
}

bool Transport::startCurrentDeck() {
  state_.startVolume = doors_.recording.adjustEnabled() ? kCorrectedStartVolume : std::int16_t{0};
  const int position = form_.List1.listIndex();
  if (position == -1) return false;
  setPaused(false);
  songs_.setPlayed(position, true);
  state_.manualStartFirst = base::kFalse;
  state_.manualStartSecond = base::kFalse;

  Deck* deck = decks_.current();
  if (deck == nullptr) {
    failedStart();
    return false;
  }
  deck->fadeOut = base::kFalse;
  deck->setVolume(state_.startVolume);
  deck->run();
  deck->duration = deck->graph->duration();
  // A song too short to be mixed is never mixed.
  if (deck->duration < double{live_.mixLead}) form_.Option1.setValue(true);
  limitSlider(*deck);

  form_.Command3.setEnabled(true);
  form_.Label10[kPlayingLamp].setBackColour(controls::kGreen);
  form_.Label10[kPausedLamp].setBackColour(controls::kGrey);
  state_.playRetryCount = 0;
  return true;
}

void Transport::failedStart() {
  ++state_.playRetryCount;
  if (state_.playRetryCount < kRetryLimit) {
    form_.Command3.setEnabled(true);
    if (!form_.Option1.value()) playNextLater();
    return;
  }
  // Nothing may start, nor count, until the message is closed. It is shown once this event is over:
  // the start may have come from a tick, and a tick that waits would stop the clock and the fades.
  form_.Command3.setEnabled(false);
  doors_.later([this] { reportFailedStarts(); });
}

// A share that does not answer costs seconds a song: the window gets its turn in between, and what
// the user starts or stops there is not overruled by the old attempt.
void Transport::playNextLater() {
  doors_.later([this, failed = starts_] {
    if (failed == starts_) doors_.playNext();
  });
}

void Transport::reportFailedStarts() {
  base::goOn([this] {
    doors_.dialogs.showMessage({"Error playing selected file", platform::MessageIcon::Critical,
                                platform::MessageButtons::Ok, platform::Answer::Ok});
  });
  form_.Command3.setEnabled(true);
  state_.playRetryCount = 0;
}

void Transport::setPaused(bool paused) {
  state_.paused = base::toFlag(paused);
  form_.Command4.setCaption(paused ? "&Resume" : "&Pause");
}

void Transport::forgetPause() {
  if (base::isSet(state_.paused)) setPaused(false);
}

void Transport::limitSlider(const Deck& deck) {
  // The slider ends where the mix starts.
  const double end = live_.modeCode == "1" ? deck.duration : deck.duration - live_.mixLead;
  form_.HScroll1.setMax(sliderEnd(end));
  const std::int16_t step = sliderStep(form_.HScroll1.max());
  form_.HScroll1.setLargeChange(step);
  form_.HScroll1.setSmallChange(step);
}

void Transport::play() {
  base::endQuietly([this] { startCurrentDeck(); });
}

void Transport::pauseOrResume() {
  base::endQuietly([this] {
    form_.List1.setFocus();
    if (base::isSet(state_.paused)) {
      form_.Command4.setCaption("&Pause");
      startCurrentDeck();
      state_.paused = base::kFalse;
      form_.Label10[kPausedLamp].setBackColour(controls::kGrey);
      return;
    }
    Deck* deck = decks_.current();
    if (deck == nullptr) return;
    deck->pause();
    setPaused(true);
    form_.Label10[kPausedLamp].setBackColour(controls::kYellow);
  });
}

void Transport::stop() {
  ++starts_;
  base::endQuietly([this] {
    state_.timeString = "00:00";
    forgetPause();
    decks_.releaseA();
    decks_.releaseB();
    state_.manualStartFirst = base::kTrue;
    songs_.setPlayingPosition(-1);
    moveThumbToStart();
    form_.Label10[kPlayingLamp].setBackColour(controls::kGrey);
    form_.Label10[kPausedLamp].setBackColour(controls::kGrey);
    form_.List1.setFocus();
    if (doors_.recording.recording()) doors_.recording.stopRecording();
  });
}

void Transport::playNextClick() {
  form_.List1.setFocus();
  doors_.playNext();
}

void Transport::moveThumbToStart() {
  if (base::isSet(state_.sliderDragging)) return;
  const base::Flag16 idle = std::exchange(state_.sliderIdle, base::kFalse);
  base::goOn([this] { form_.HScroll1.setValue(form_.HScroll1.min()); });
  state_.sliderIdle = idle;
}

void Transport::sliderScrolled() { state_.sliderDragging = base::kTrue; }

void Transport::sliderChanged() {
  state_.sliderDragging = base::kFalse;
  // The slider's whole seconds may round up past the end.
  if (base::isSet(state_.sliderIdle)) seek(form_.HScroll1.value());
}

void Transport::seek(double seconds) {
  if (base::isSet(decks_.a.mixLatch) || base::isSet(decks_.b.mixLatch)) return;
  base::goOn([&] {
    if (Deck* deck = decks_.current()) deck->seek(std::min(seconds, deck->duration));
  });
}

}  // namespace nerolith::player
