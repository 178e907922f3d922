#include "player/front_panel.h"

#include "base/failure_policy.h"
#include "player/crossfade.h"
#include "player/next_track.h"

namespace nerolith::player {

FrontPanel::FrontPanel(forms::MainForm& form, const library::SongList& songs,
                       const settings::LiveSettings& live, const PlayerState& state,
                       const Decks& decks)
    : form_(form),
      songs_(songs),
      live_(live),
      state_(state),
      decks_(decks),
      subscription_(form.Timer1.tick.subscribe([this] { show(); })) {}

void FrontPanel::show() {
  form_.timeKind.setCaption(base::isSet(live_.timeInverted) ? "ELAPSED" : "REMAINING");
  showDeck(decks_.a, form_.deckWordA, form_.deckLevelA);
  showDeck(decks_.b, form_.deckWordB, form_.deckLevelB);
  showMixPoint();
  base::goOn([this] { form_.notice.setCaption(decks_.soundTrouble()); });
}

void FrontPanel::showDeck(const Deck& deck, controls::Label& word, controls::ProgressBar& level) {
  word.setForeColour(&deck == decks_.current() ? controls::kGreen : controls::kGrey);
  level.setValue(deck.loaded() && deck.level() ? levelPercent(*deck.level()) : 0.0F);
}

bool FrontPanel::mixes() const {
  const Deck* deck = decks_.current();
  return deck != nullptr && deck->loaded() && !form_.Option1.value();
}

void FrontPanel::showMixPoint() {
  const bool marked = mixes() && !songs_.listExhausted;
  form_.HScroll1.setEndMark(marked ? "mix" : "");

  std::string text;
  if (marked) {
    const Deck& deck = *decks_.current();
    const bool runsOut =
        form_.Option2.value() &&
        !nextInOrder(form_.List1.listIndex(), form_.List1.count(), base::isSet(live_.loop));
    const double left = deck.duration - double{live_.mixLead} - deck.position;
    const bool blocked = base::isSet(deck.fadeOut) || base::isSet(state_.manualStartFirst);
    if (left > 0 && !runsOut && !blocked) text = "mix in " + countdownText(left);
  }
  form_.mixIn.setCaption(text);
}

}  // namespace nerolith::player
