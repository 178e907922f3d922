// What the front shows beside the time: decks, levels, the coming mix, trouble with the sound.
#pragma once

#include "base/signal.h"
#include "forms/main_form.h"
#include "library/song_list.h"
#include "player/decks.h"

namespace nerolith::player {

/// Follows the player on every tick of Timer1; made after PlaybackTimer, so that it runs after it.
/// Reads the player and decides nothing.
class FrontPanel {
 public:
  FrontPanel(forms::MainForm& form, const library::SongList& songs,
             const settings::LiveSettings& live, const PlayerState& state, const Decks& decks);

  void show();

 private:
  void showDeck(const Deck& deck, controls::Label& word, controls::ProgressBar& level);
  bool mixes() const;
  void showMixPoint();

  forms::MainForm& form_;
  const library::SongList& songs_;
  const settings::LiveSettings& live_;
  const PlayerState& state_;
  const Decks& decks_;
  base::Subscription subscription_;
};

}  // namespace nerolith::player
