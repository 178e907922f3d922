// The play modes and the loop.
#pragma once

#include <vector>

#include "base/signal.h"
#include "forms/main_form.h"
#include "player/decks.h"
#include "player/player_state.h"

namespace nerolith::player {

/// Binds Option1 to Option3, Check1 and Label7; every handler ends quietly. A chosen mode gives the
/// focus to the song list, and so does the mouse that lets go of Check1.
class PlayModes {
 public:
  PlayModes(forms::MainForm& form, settings::LiveSettings& live, PlayerState& state, Decks& decks);

  /// The loop flag follows the check box; the playtime label is of use without loop only.
  void Check1_Click();

 private:
  void Option1_Click();  // Single
  void Option2_Click();  // Auto next
  void Option3_Click();  // Random
  /// The words beside the lamps: 0 to 2 choose a mode, 3 toggles the loop.
  void Label7_Click(std::size_t index);
  void mixInMode(const char* code);

  forms::MainForm& form_;
  settings::LiveSettings& live_;
  PlayerState& state_;
  Decks& decks_;
  std::vector<base::Subscription> subscriptions_;
};

}  // namespace nerolith::player
