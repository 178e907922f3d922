#include "platform/windows/media_keys.h"

#include <iterator>

namespace nerolith::windows {
namespace {

using platform::MediaCommands;

struct HotKey {
  UINT key;
  MediaCommand command;
};
constexpr HotKey kHotKeys[] = {{VK_MEDIA_PLAY_PAUSE, &MediaCommands::playOrPause},
                               {VK_MEDIA_STOP, &MediaCommands::stop},
                               {VK_MEDIA_NEXT_TRACK, &MediaCommands::next}};

}  // namespace

MediaCommand commandOf(int appCommand) {
  switch (appCommand) {
    case APPCOMMAND_MEDIA_PLAY_PAUSE:
      return &MediaCommands::playOrPause;
    case APPCOMMAND_MEDIA_PLAY:
      return &MediaCommands::play;
    case APPCOMMAND_MEDIA_PAUSE:
      return &MediaCommands::pause;
    case APPCOMMAND_MEDIA_STOP:
      return &MediaCommands::stop;
    case APPCOMMAND_MEDIA_NEXTTRACK:
      return &MediaCommands::next;
    default:
      return nullptr;
  }
}

std::optional<LRESULT> MediaKeys::onMessage(UINT message, LPARAM second) {
  if (message != WM_APPCOMMAND || !commands_) return std::nullopt;
  const MediaCommand command = commandOf(GET_APPCOMMAND_LPARAM(second));
  if (!command) return std::nullopt;
  (commands_->*command)();
  return TRUE;  // else the system would deliver it once more
}

void MediaKeys::open(MediaCommands& commands) {
  close();
  commands_ = &commands;
  if (!delivered_()) takeKeys();
}

/// A key that another program has taken stays with it.
void MediaKeys::takeKeys() {
  keys_ = std::make_unique<MessageWindow>(
      L"Nerolith.MediaKeys",
      [this](UINT message, WPARAM first, LPARAM) { return onHotKey(message, first); });
  if (!keys_->handle()) return;
  for (std::size_t i = 0; i < std::size(kHotKeys); ++i)
    RegisterHotKey(keys_->handle(), static_cast<int>(i), MOD_NOREPEAT, kHotKeys[i].key);
}

std::optional<LRESULT> MediaKeys::onHotKey(UINT message, WPARAM key) {
  if (message != WM_HOTKEY || !commands_ || key >= std::size(kHotKeys)) return std::nullopt;
  (commands_->*kHotKeys[key].command)();
  return 0;
}

void MediaKeys::close() {
  commands_ = nullptr;
  if (!keys_) return;
  for (std::size_t i = 0; i < std::size(kHotKeys); ++i)
    UnregisterHotKey(keys_->handle(), static_cast<int>(i));
  keys_.reset();
}

}  // namespace nerolith::windows
