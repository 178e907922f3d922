// A player that writes down what the desktop asks of it.
#pragma once

#include <windows.h>

#include <string>

#include "platform/media_controls.h"

namespace nerolith::windows {

/// "play pause " in the order in which it was asked.
class HeardCommands final : public platform::MediaCommands {
 public:
  std::string heard;

  void play() override { heard += "play "; }
  void pause() override { heard += "pause "; }
  void playOrPause() override { heard += "playOrPause "; }
  void stop() override { heard += "stop "; }
  void next() override { heard += "next "; }
  void seekBy(double) override { heard += "seekBy "; }
  void seekTo(double seconds) override { heard += "seekTo:" + std::to_string(seconds) + " "; }
  void setRepeat(platform::Repeat) override { heard += "repeat "; }
  void setShuffle(bool) override { heard += "shuffle "; }
  void raise() override { heard += "raise "; }
  void quit() override { heard += "quit "; }
  void openFile(const std::string&) override { heard += "open "; }
};

inline platform::MediaStatus playingSong(double position = 0) {
  platform::MediaStatus status;
  status.state = platform::PlayState::Playing;
  status.song = 1;
  status.title = "Low Tide \xC3\xA9";
  status.length = 200;
  status.position = position;
  status.canPlay = status.canPause = status.canSeek = status.canGoNext = true;
  return status;
}

/// Lets what was posted to this thread's windows arrive.
inline void letMessagesArrive() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

}  // namespace nerolith::windows
