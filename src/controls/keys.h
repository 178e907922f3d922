// Keys that the player's rules name.
#pragma once

namespace nerolith::controls {

/// Letters are 'A'..'Z'; the others are named.
enum class Key : int {
  Other = 0,
  Enter = 13,
  Escape = 27,
  Space = 32,
  Delete = 46,
  Menu = 93,
  F1 = 112,
  F10 = 121
};

constexpr Key letterKey(char upperCaseLetter) { return static_cast<Key>(upperCaseLetter); }

struct KeyPress {
  Key key = Key::Other;
  bool shift = false;
  bool control = false;
  bool alt = false;
};

}  // namespace nerolith::controls
