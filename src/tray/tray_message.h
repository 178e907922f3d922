// What the mouse did over the tray icon.
#pragma once

namespace nerolith::tray {

/// The icon's mouse arrives as moves over a picture box, the real message as the place across: its
/// number, times the 15 twips of a pixel.
inline constexpr float kLeftButtonDown = 7695;   // 513
inline constexpr float kLeftButtonUp = 7710;     // 514
inline constexpr float kLeftDoubleClick = 7725;  // 515
inline constexpr float kRightButtonDown = 7740;  // 516

/// Whether the menu is to be shown. The values are compared as they stand.
constexpr bool asksForMenu(float across) {
  return across == kLeftButtonDown || across == kLeftDoubleClick || across == kRightButtonDown;
}

}  // namespace nerolith::tray
