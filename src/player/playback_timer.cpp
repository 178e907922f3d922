#include "player/playback_timer.h"

#include <string>

#include "base/failure_policy.h"
#include "player/crossfade.h"

namespace nerolith::player {

using base::goOn;

PlaybackTimer::PlaybackTimer(forms::MainForm& form, const library::SongList& songs,
                             const settings::LiveSettings& live, PlayerState& state, Decks& decks,
                             NextTrack& nextTrack, RecordingLink& recording)
    : form_(form),
      songs_(songs),
      live_(live),
      state_(state),
      decks_(decks),
      nextTrack_(nextTrack),
      recording_(recording),
      subscription_(form.Timer1.tick.subscribe([this] { tick(); })) {}

void PlaybackTimer::tick() {
  goOn([this] { recording_.placeBesideMainWindow(); });
  goOn([this] { showSelectedCount(); });
  goOn([this] { showModeLamps(); });
  goOn([this] { followListIndex(); });
  goOn([this] { showListCount(); });
  goOn([this] { recording_.volumeCorrectionStep(); });
  fadeDecks();
  readPositions();
  goOn([this] { readDisplayTime(); });
  goOn([this] { showTime(); });
  goOn([this] { triggerMix(decks_.a); });
  goOn([this] { triggerMix(decks_.b); });
  moveSlider();
}

void PlaybackTimer::showSelectedCount() {
  form_.Label2.setCaption(std::to_string(form_.List1.selectedCount()));
}

void PlaybackTimer::showModeLamps() {
  const std::array<bool, 4> on = {form_.Option1.value(), form_.Option2.value(),
                                  form_.Option3.value(), form_.Check1.value() != 0};
  for (std::size_t i = 0; i < on.size(); ++i)
    form_.Label6[i].setBackColour(on[i] ? controls::kRed : controls::kGrey);
}

void PlaybackTimer::followListIndex() {
  // While the playtime is counted, the position walks over the list and the label shows that.
  if (songs_.held) return;
  const auto index = static_cast<float>(form_.List1.listIndex());
  if (index == state_.rememberedListIndex) return;
  form_.Label4.setEnabled(false);
  state_.rememberedListIndex = index;
}

void PlaybackTimer::showListCount() {
  form_.Label3.setCaption(std::to_string(form_.List1.count()));
}

void PlaybackTimer::fadeDecks() {
  for (Deck* deck : {&decks_.a, &decks_.b})
    if (base::isSet(deck->fadeOut)) goOn([&] { fade(*deck); });
}

void PlaybackTimer::fade(Deck& deck) {
  const bool lowered = goOn([&] { deck.setVolume(fadedVolume(deck.volume(), state_.fadeSteps)); });
  if (!lowered) {
    // Nothing is rendered there, or its sound is gone: there is nothing to fade.
    deck.fadeOut = base::kFalse;
    return;
  }
  if (fadeIsOver(deck.volume())) decks_.release(deck);
}

void PlaybackTimer::readPositions() {
  for (Deck* deck : {&decks_.a, &decks_.b}) goOn([&] { deck->position = deck->currentPosition(); });
}

void PlaybackTimer::readDisplayTime() {
  const Deck* deck = decks_.current();
  if (deck == nullptr) return;
  const bool elapsed = base::isSet(live_.timeInverted);
  // Before the first song and after Stop there is no time to show, whatever the thumb says.
  state_.displayTime =
      deck->loaded() ? displayTime(elapsed, deck->duration, form_.HScroll1.value()) : 0;
}

void PlaybackTimer::showTime() {
  state_.timeString = timeText(state_.displayTime);
  form_.Label1.setCaption(state_.displayTime <= 0 ? "00:00" : state_.timeString);
}

void PlaybackTimer::triggerMix(Deck& deck) {
  if (songs_.listExhausted) return;
  const double lead = form_.Option1.value() ? 0.0 : double{live_.mixLead};
  // Positions tell what is heard now. A song started now is heard later by the output's delay, and
  // it is heard that the mix point is for.
  const double early = lead + decks_.startDelay();
  const bool due = mixIsDue({deck.position, deck.duration, early, base::isSet(deck.fadeOut),
                             base::isSet(state_.manualStartFirst)});
  if (!due) {
    deck.mixLatch = base::kFalse;
    return;
  }
  state_.fadeSteps = live_.fadeLength;
  if (!base::isSet(deck.mixLatch)) nextTrack_.chooseAndStartNext();
}

void PlaybackTimer::moveSlider() {
  if (base::isSet(state_.sliderDragging)) return;
  state_.sliderIdle = base::kFalse;
  for (Deck* deck : {&decks_.a, &decks_.b})
    if (deck == decks_.current() && !base::isSet(deck->fadeOut))
      goOn([&] { form_.HScroll1.setValue(base::toInt16Clamped(deck->position)); });
  state_.sliderIdle = base::kTrue;
}

}  // namespace nerolith::player
