// Choosing the next song and starting it.
#pragma once

#include <functional>
#include <optional>

#include "forms/main_form.h"
#include "library/song_list.h"
#include "player/decks.h"
#include "player/random_choice.h"
#include "player/recording_link.h"
#include "player/song_starter.h"

namespace nerolith::player {

/// The position after `current` in a list of `count`; after the last one the first with `loop` on,
/// nothing with it off. -1 stands before the first.
std::optional<int> nextInOrder(int current, int count, bool loop);

/// Where next-track selection gets its randomness and its marks.
struct DrawSources {
  RandomSource& random;
  /// Called when random play is about to draw with the recent-file rule on; brings the recent marks
  /// up to date if they are not. May be empty; a failure of it is ignored.
  std::function<void()> scanRecent;
};

/// Decides by play mode, loop, played tags and the recent-file rule, and starts the choice.
/// User-interface thread only.
class NextTrack {
 public:
  NextTrack(forms::MainForm& form, library::SongList& songs, const settings::LiveSettings& live,
            PlayerState& state, Decks& decks, RecordingLink& recording, DrawSources draws);

  /// Given after construction: the starter comes back here when a start fails.
  void setStarter(SongStarter& starter) { starter_ = &starter; }

  /// Play-next, of the Play Next button, the tray menu and a failed start. Ends any pause and the
  /// exhausted state, then chooses and starts. Ends quietly.
  void speelvolgendeknop();

  /// What the mix trigger calls. Starts nothing when there is nothing to go on with: the current
  /// song then plays to its end. Fails for a draw above position 10000.
  void chooseAndStartNext();

 private:
  void playNext();
  void startSingle();
  void startInOrder();
  void startRandom();
  void ranOut();
  void start();

  forms::MainForm& form_;
  library::SongList& songs_;
  const settings::LiveSettings& live_;
  PlayerState& state_;
  Decks& decks_;
  RecordingLink& recording_;
  DrawSources draws_;
  SongStarter* starter_ = nullptr;
};

}  // namespace nerolith::player
