// The desktop's media controls, joined to the player.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "app/now_playing.h"
#include "base/signal.h"
#include "forms/main_form.h"
#include "platform/media_controls.h"
#include "player/player.h"

namespace nerolith::app {

/// What the desktop may ask for that is not the player's.
struct WindowActions {
  std::function<void()> comeForward;
  std::function<void(const std::string& path)> openFile;
};

/// Shows the player to the desktop after each tick of Timer1, and carries out what the desktop asks
/// for as if the user had done it in the window: by the faces (`Label8`), the mode words (`Label7`)
/// and the loop. Two things have no control of their own: Play goes on after a pause, and does
/// nothing while a song plays; and a place in the song is sought to the fraction of a second.
/// Made after the player, so that it sees each tick's outcome. User-interface thread only.
class RemoteControl final : public platform::MediaCommands {
 public:
  RemoteControl(platform::MediaControls& controls, forms::MainForm& form, player::Player& player,
                char separator, WindowActions window);
  ~RemoteControl() override { end(); }
  RemoteControl(const RemoteControl&) = delete;
  RemoteControl& operator=(const RemoteControl&) = delete;

  /// The window is up; the desktop may know of the player from now on.
  void begin();
  /// The player is closed.
  void end();

  void play() override;
  void pause() override;
  void playOrPause() override;
  void stop() override;
  void next() override;
  void seekBy(double seconds) override;
  void seekTo(double seconds) override;
  void setRepeat(platform::Repeat repeat) override;
  void setShuffle(bool shuffle) override;
  void raise() override;
  void quit() override;
  void openFile(const std::string& path) override;

 private:
  void clickFace(std::size_t face);
  void clickMode(std::size_t word);
  void seek(double seconds);
  double freshPosition();
  void followSong();
  platform::MediaStatus status(double position) const;
  void tick();
  void showAtOnce();

  platform::MediaControls& controls_;
  forms::MainForm& form_;
  player::Player& player_;
  char separator_;
  WindowActions window_;
  LeapWatch leaps_;
  std::uint64_t starts_ = 0;            // of songs
  const player::Deck* deck_ = nullptr;  // the one with the song that is shown; null: none is
  std::string path_;
  base::Subscription subscription_;
  bool open_ = false;
};

}  // namespace nerolith::app
