// Starting, pausing, stopping, and the position slider.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "base/signal.h"
#include "forms/main_form.h"
#include "library/song_list.h"
#include "platform/dialogs.h"
#include "player/decks.h"
#include "player/recording_link.h"
#include "player/song_starter.h"

namespace nerolith::player {

/// Texts and characters that depend on the machine and on who else is there.
struct TransportDoors {
  platform::Dialogs& dialogs;
  RecordingLink& recording;
  /// Between the folders of a path, '\\' or '/'.
  char separator;
  /// Play-next (`speelvolgendeknop`): where a failed start goes on.
  std::function<void()> playNext;
  /// Runs a call once the current event is over.
  std::function<void(std::function<void()>)> later;
};

/// Binds List1's double click, Command1 to Command4 and HScroll1. User-interface thread only.
///
/// States: idle (fresh decks) -> playing -> paused -> playing ...; stop() leads back to idle. While
/// a start is under way Command3 is disabled, which is what keeps a second one out.
///
/// A start that fails has one handler: the retry counter goes up; below 25 Command3 is enabled
/// again and, unless the mode is Single, play-next runs; at 25 the message is shown once, Command3
/// is enabled and the counter starts again. Play-next runs once the current event is over, unless
/// something was started or stopped meanwhile.
class Transport final : public SongStarter {
 public:
  Transport(forms::MainForm& form, library::SongList& songs, settings::LiveSettings& live,
            PlayerState& state, Decks& decks, TransportDoors doors);

  void list1_DblClick() override;

  /// Starts or resumes the current deck; nothing when the list has no current position. Passes on
  /// what its deck cannot do. True when the deck runs.
  bool startCurrentDeck();

  /// Command1: startCurrentDeck that ends quietly.
  void play();
  /// Command4: freezes the current deck, or goes on where it stood. Ends quietly.
  void pauseOrResume();
  /// Command2: silence, both decks fresh, a running recording stopped. Ends quietly.
  void stop();
  /// Command3: focus to the list, then play-next.
  void playNextClick();

  /// Goes on at this place of the current deck's song, in seconds; at its end where it is shorter.
  /// Nothing while a mix is being triggered, or where the deck cannot.
  void seek(double seconds);

  /// Ends a pause as far as the flag and Command4's caption go.
  void forgetPause();

  /// Entries above this position are listed but not started.
  static constexpr int kLastStartable = library::SongList::kTagged - 1;
  /// Failed starts in a row that are reported.
  static constexpr int kRetryLimit = 25;

 private:
  void bind();
  void loadAndStart();
  void failedStart();
  void playNextLater();
  void reportFailedStarts();
  void setPaused(bool paused);
  void limitSlider(const Deck& deck);
  void moveThumbToStart();
  void sliderScrolled();
  void sliderChanged();

  forms::MainForm& form_;
  library::SongList& songs_;
  settings::LiveSettings& live_;
  PlayerState& state_;
  Decks& decks_;
  TransportDoors doors_;
  std::uint64_t starts_ = 0;  // attempts to start, and stops: what tells an outdated retry
  std::vector<base::Subscription> subscriptions_;
};

}  // namespace nerolith::player
