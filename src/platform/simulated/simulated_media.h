// A panel that shows the player, and its buttons.
#pragma once

#include <vector>

#include "platform/media_controls.h"
#include "platform/simulated/doorway.h"

namespace nerolith::platform::simulated {

/// Trace: "media.open", "media.seeked SECONDS" (whole ones), "media.close". What is shown comes ten
/// times a second and is not traced. A test presses the buttons by `commands`.
class SimulatedMedia : public MediaControls {
 public:
  explicit SimulatedMedia(Doorway& doorway) : doorway_(doorway) {}

  /// While it is open; null before and after.
  MediaCommands* commands() const { return commands_; }
  const MediaStatus& shown() const { return shown_; }

  void open(MediaCommands& commands) override {
    doorway_.note({Door::Media, "media", "open"});
    commands_ = &commands;
  }
  void show(const MediaStatus& status) override { shown_ = status; }
  void seeked(double position) override {
    doorway_.note({Door::Media, "media", "seeked", std::to_string(static_cast<int>(position))});
  }
  void close() override {
    doorway_.note({Door::Media, "media", "close"});
    commands_ = nullptr;
  }

 private:
  Doorway& doorway_;
  MediaCommands* commands_ = nullptr;
  MediaStatus shown_;
};

}  // namespace nerolith::platform::simulated
