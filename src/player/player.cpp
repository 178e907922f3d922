#include "player/player.h"

namespace nerolith::player {

Player::Player(forms::MainForm& form, library::SongList& songs, settings::LiveSettings& live,
               RecordingLink& recording, const PlayerDoors& doors)
    : decks_(doors.graphs, live, state_),
      nextTrack_(form, songs, live, state_, decks_, recording, {random_, doors.scanRecent}),
      transport_(
          form, songs, live, state_, decks_,
          {doors.dialogs, recording, doors.separator, [this] { speelvolgendeknop(); },
           [&events = doors.events](std::function<void()> call) { events.post(std::move(call)); }}),
      modes_(form, live, state_, decks_),
      timeLabel_(form.Label1, live),
      timer_(form, songs, live, state_, decks_, nextTrack_, recording),
      frontPanel_(form, songs, live, state_, decks_) {
  nextTrack_.setStarter(transport_);
}

}  // namespace nerolith::player
