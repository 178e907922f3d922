// All the places in which Windows shows and controls the player.
#pragma once

#include <windows.h>

#include <optional>

#include "platform/media_controls.h"
#include "platform/windows/media_keys.h"
#include "platform/windows/taskbar_button.h"
#include "platform/windows/transport_controls.h"

namespace nerolith::windows {

/// The transport controls, the taskbar's button and the media keys as one. Hears the messages of
/// the player's window from its making on.
class WindowsMediaControls final : public platform::MediaControls {
 public:
  WindowsMediaControls()
      : transport_([this] { return window_; }), keys_([this] { return transport_.present(); }) {}

  /// A message of the player's window; what is answered here is done with.
  std::optional<LRESULT> onMessage(HWND window, UINT message, WPARAM first, LPARAM second) {
    window_ = window;
    if (const auto answer = taskbar_.onMessage(window, message, first)) return answer;
    return keys_.onMessage(message, second);
  }

  void open(platform::MediaCommands& commands) override {
    transport_.open(commands);
    taskbar_.open(commands);
    keys_.open(commands);
  }
  void show(const platform::MediaStatus& status) override {
    transport_.show(status);
    taskbar_.show(status);
  }
  void seeked(double position) override { transport_.seeked(position); }
  void close() override {
    keys_.close();
    taskbar_.close();
    transport_.close();
  }

 private:
  HWND window_ = nullptr;
  TransportControls transport_;
  TaskbarButton taskbar_;
  MediaKeys keys_;
};

}  // namespace nerolith::windows
