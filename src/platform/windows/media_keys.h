// The media keys of the keyboard.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <optional>

#include "platform/media_controls.h"
#include "platform/windows/message_window.h"

namespace nerolith::windows {

using MediaCommand = void (platform::MediaCommands::*)();

/// What a WM_APPCOMMAND asks for; null for what the player does not know.
MediaCommand commandOf(int appCommand);

/// In front, the player hears of the keys by its window's messages. For behind, it asks the system
/// for the keys themselves, where nobody else delivers them.
class MediaKeys final : public platform::MediaControls {
 public:
  /// `delivered`: whether somebody else delivers them while the player is behind; asked at `open`.
  explicit MediaKeys(std::function<bool()> delivered) : delivered_(std::move(delivered)) {}
  ~MediaKeys() override { close(); }
  MediaKeys(const MediaKeys&) = delete;
  MediaKeys& operator=(const MediaKeys&) = delete;

  /// A message of the player's window.
  std::optional<LRESULT> onMessage(UINT message, LPARAM second);

  void open(platform::MediaCommands& commands) override;
  void show(const platform::MediaStatus&) override {}
  void seeked(double) override {}
  void close() override;

 private:
  void takeKeys();
  std::optional<LRESULT> onHotKey(UINT message, WPARAM key);

  std::function<bool()> delivered_;
  platform::MediaCommands* commands_ = nullptr;
  std::unique_ptr<MessageWindow> keys_;
};

}  // namespace nerolith::windows
