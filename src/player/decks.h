// The two decks, and which of them is current.
#pragma once

#include <string>

#include "platform/filter_graph.h"
#include "player/deck.h"
#include "player/player_state.h"
#include "settings/live_settings.h"

namespace nerolith::player {

/// Holds deck A and deck B. The current deck is the one whose song is shown and counted; the other
/// is idle or fades out. A deck holds a graph, fresh or in use, unless
/// making one failed.
class Decks {
 public:
  /// Both decks get fresh graphs; a failure leaves a deck without one until it is loaded.
  Decks(platform::FilterGraphFactory& graphs, const settings::LiveSettings& settings,
        PlayerState& state);
  Decks(const Decks&) = delete;
  Decks& operator=(const Decks&) = delete;

  Deck a;
  Deck b;

  /// Complemented at every start. A value that is neither true nor false makes no deck current.
  base::Flag16 currentDeckIsA = base::kFalse;

  bool aIsCurrent() const { return currentDeckIsA == base::kTrue; }
  bool bIsCurrent() const { return currentDeckIsA == base::kFalse; }
  /// nullptr when neither is.
  Deck* current();
  const Deck* current() const;

  /// Stop, a fresh graph, the fade-out flag cleared, the fade steps back at the fade length. A
  /// failing step is skipped.
  void releaseA() { release(a); }
  void releaseB() { release(b); }
  void release(Deck& deck);

  /// Marks the current deck to fade out and renders `path` on the other one, which becomes
  /// current. What still fades on the other one is released first. Fails when the file cannot be
  /// rendered: the current deck stays current, and fades.
  void loadOther(const std::string& path);

  void setMixLatches();

  /// The sentence of the sound output's trouble, empty while there is none.
  std::string soundTrouble() const { return graphs_.soundTrouble(); }
  /// How much later than its start a song is heard, in seconds.
  double startDelay() const { return graphs_.startDelay(); }

 private:
  void loadFrom(Deck& old, Deck& next, const std::string& path);

  platform::FilterGraphFactory& graphs_;
  const settings::LiveSettings& settings_;
  PlayerState& state_;
};

}  // namespace nerolith::player
