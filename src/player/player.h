// The player, put together.
#pragma once

#include <functional>

#include "forms/main_form.h"
#include "library/song_list.h"
#include "platform/dialogs.h"
#include "platform/event_queue.h"
#include "platform/filter_graph.h"
#include "player/decks.h"
#include "player/front_panel.h"
#include "player/next_track.h"
#include "player/play_modes.h"
#include "player/playback_timer.h"
#include "player/player_state.h"
#include "player/random_source.h"
#include "player/recording_link.h"
#include "player/time_label.h"
#include "player/transport.h"

namespace nerolith::player {

/// What the player asks of the machine and of the song list's scan.
struct PlayerDoors {
  platform::FilterGraphFactory& graphs;
  platform::Dialogs& dialogs;
  platform::EventQueue& events;
  /// Between the folders of a path, '\\' or '/'.
  char separator;
  /// See DrawSources.
  std::function<void()> scanRecent;
};

/// Owns the decks and everything that works them, and binds it to the main window: Command1 to
/// Command4, Option1 to Option3, Check1, Label1, Label7, HScroll1, the double click on List1, and
/// Timer1. Made before the settings are applied to the window, so that its handlers see that.
/// Everything handed over has to outlive it. User-interface thread only.
class Player {
 public:
  Player(forms::MainForm& form, library::SongList& songs, settings::LiveSettings& live,
         RecordingLink& recording, const PlayerDoors& doors);
  Player(const Player&) = delete;
  Player& operator=(const Player&) = delete;

  /// Starts the entry at the list's current position.
  void list1_DblClick() { transport_.list1_DblClick(); }
  /// Play-next.
  void speelvolgendeknop() { nextTrack_.speelvolgendeknop(); }

  PlayerState& state() { return state_; }
  const PlayerState& state() const { return state_; }
  Decks& decks() { return decks_; }
  const Decks& decks() const { return decks_; }
  RandomSource& random() { return random_; }
  Transport& transport() { return transport_; }
  PlayModes& modes() { return modes_; }
  TimeLabel& timeLabel() { return timeLabel_; }
  PlaybackTimer& timer() { return timer_; }

 private:
  PlayerState state_;
  Decks decks_;
  RandomSource random_;
  NextTrack nextTrack_;
  Transport transport_;
  PlayModes modes_;
  TimeLabel timeLabel_;
  PlaybackTimer timer_;
  FrontPanel frontPanel_;
};

}  // namespace nerolith::player
