#include "player/next_track.h"

#include <utility>

#include "base/failure_policy.h"
#include "player/crossfade.h"

namespace nerolith::player {

std::optional<int> nextInOrder(int current, int count, bool loop) {
  if (current != count - 1) return current + 1;
  return loop ? std::optional<int>(0) : std::nullopt;
}

NextTrack::NextTrack(forms::MainForm& form, library::SongList& songs,
                     const settings::LiveSettings& live, PlayerState& state, Decks& decks,
                     RecordingLink& recording, DrawSources draws)
    : form_(form),
      songs_(songs),
      live_(live),
      state_(state),
      decks_(decks),
      recording_(recording),
      draws_(std::move(draws)) {}

void NextTrack::speelvolgendeknop() {
  base::endQuietly([this] { playNext(); });
}

void NextTrack::playNext() {
  state_.manualStartSecond = base::kTrue;
  if (songs_.listExhausted) {
    songs_.listExhausted = false;
    songs_.clearPlayedTags();
  }
  if (base::isSet(state_.paused)) {
    state_.paused = base::kFalse;
    form_.Command4.setCaption("&Pause");
  }
  state_.manualStartFirst = base::kFalse;
  chooseAndStartNext();
}

void NextTrack::chooseAndStartNext() {
  // The timer must not trigger again while this runs.
  decks_.setMixLatches();
  if (form_.Option1.value()) return startSingle();
  songs_.deselectAll();
  if (form_.Option3.value()) return startRandom();
  startInOrder();
}

void NextTrack::startSingle() {
  if (form_.List1.listIndex() != -1 && base::isSet(live_.loop)) start();
  state_.manualStartFirst = base::kFalse;
}

void NextTrack::startInOrder() {
  const std::optional<int> next =
      nextInOrder(form_.List1.listIndex(), songs_.listCount(), base::isSet(live_.loop));
  if (!next) return ranOut();
  state_.manualStartSecond = base::kFalse;
  form_.List1.setListIndex(*next);
  start();
}

void NextTrack::startRandom() {
  const RecentRule rule{base::isSet(live_.recentRule), live_.recentAfter};
  if (rule.enabled && draws_.scanRecent) base::goOn(draws_.scanRecent);

  const int count = songs_.listCount();
  const bool loop = base::isSet(live_.loop);
  const int candidate = drawPosition(draws_.random, count);
  if (!songs_.anyUnplayed(count)) {
    if (loop) songs_.clearPlayedTags();
    if (count < 1 || !loop) {
      // The song that plays is not mixed away: the slider covers it to its end.
      const double end = form_.HScroll1.max() + double{live_.mixLead};
      form_.HScroll1.setMax(sliderEnd(end));
      songs_.listExhausted = true;
      return ranOut();
    }
  }
  const int index = chooseRandom(songs_, count, candidate, draws_.random, rule, state_.recentCount);
  form_.List1.setListIndex(index);
  form_.List1.setSelected(index, true);
  songs_.setPlayed(index, true);
  state_.manualStartSecond = base::kTrue;
  start();
}

void NextTrack::ranOut() {
  if (recording_.recording()) recording_.stopAfterLastSong();
}

void NextTrack::start() {
  if (starter_ != nullptr) starter_->list1_DblClick();
}

}  // namespace nerolith::player
