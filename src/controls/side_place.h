// Where a window stands that belongs at another one's side.
#pragma once

#include <algorithm>

namespace nerolith::controls {

/// Real pixels of the desktop; right and bottom lie outside.
struct DesktopArea {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
  bool operator==(const DesktopArea&) const = default;
};

struct DesktopPoint {
  int x = 0;
  int y = 0;
  bool operator==(const DesktopPoint&) const = default;
};

/// The upper left corner of a window of this size: at the right of `owner`, both tops level; at its
/// left where the screen ends; over its right part where neither side has room. `screen` is what
/// may be covered; the window's upper left corner never lies outside.
inline DesktopPoint placeAtSide(const DesktopArea& owner, int width, int height,
                                const DesktopArea& screen) {
  int x = owner.right;
  if (x + width > screen.right) x = owner.left - width;
  if (x < screen.left) x = std::max(screen.left, screen.right - width);
  const int y = std::min(owner.top, screen.bottom - height);
  return {x, std::max(y, screen.top)};
}

}  // namespace nerolith::controls
