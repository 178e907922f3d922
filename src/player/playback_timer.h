// What happens ten times a second.
#pragma once

#include "base/signal.h"
#include "forms/main_form.h"
#include "player/decks.h"
#include "player/next_track.h"
#include "player/recording_link.h"

namespace nerolith::player {

/// Timer1's tick: places the recording window, shows counts, lamps and time, corrects the volume,
/// lowers fading decks, starts the next song when the mix is due, and moves the slider. The steps
/// run in a fixed order whether or not anything plays; one that fails is skipped.
class PlaybackTimer {
 public:
  /// Binds Timer1.
  PlaybackTimer(forms::MainForm& form, const library::SongList& songs,
                const settings::LiveSettings& live, PlayerState& state, Decks& decks,
                NextTrack& nextTrack, RecordingLink& recording);

  void tick();

 private:
  void showSelectedCount();
  void showModeLamps();
  void followListIndex();
  void showListCount();
  void fadeDecks();
  void fade(Deck& deck);
  void readPositions();
  void readDisplayTime();
  void showTime();
  void triggerMix(Deck& deck);
  void moveSlider();

  forms::MainForm& form_;
  const library::SongList& songs_;
  const settings::LiveSettings& live_;
  PlayerState& state_;
  Decks& decks_;
  NextTrack& nextTrack_;
  RecordingLink& recording_;
  base::Subscription subscription_;
};

}  // namespace nerolith::player
