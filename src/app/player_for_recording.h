// The player, as the recording section needs it.
#pragma once

#include "forms/main_form.h"
#include "player/player.h"
#include "recording/playing.h"
#include "settings/live_settings.h"

namespace nerolith::app {

/// Only keeps what it is handed until the first call: the player may be made later than this.
class PlayerForRecording final : public recording::Playing {
 public:
  PlayerForRecording(forms::MainForm& form, player::Player& player,
                     const settings::LiveSettings& live)
      : form_(form), player_(player), live_(live) {}

  void stop() override;
  void play() override;
  void fadeOutCurrent() override;
  float fadeLength() const override { return live_.fadeLength; }
  bool anyFades() const override;
  bool currentFades() const override;
  std::int16_t startVolume() const override;
  std::int32_t volume() const override;
  void setVolume(std::int32_t hundredthsOfDecibel) override;

 private:
  /// Deck A where it is current, else deck B.
  player::Deck& current() const;

  forms::MainForm& form_;
  player::Player& player_;
  const settings::LiveSettings& live_;
};

}  // namespace nerolith::app
