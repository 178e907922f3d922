// A small picture that hears of the mouse.
#pragma once

#include "controls/control.h"

namespace nerolith::controls {

/// Places in a picture box are told in twips, 15 to the pixel, whatever the display's density.
inline constexpr float kTwipsPerPixel = 15;

/// Shows the product's icon. On Windows its window is also where the shell sends what the mouse
/// does over the icon in the notification area: as a move of the mouse whose place is no place, but
/// the number of the real message. Elsewhere that number is handed over in the same way.
class PictureBox : public Control {
 public:
  /// The mouse moved over it, to this place: across and down, in twips.
  base::Signal<float, float> mouseMove;

  /// The same in pixels, for renderers.
  void userMouseMove(int x, int y) {
    mouseMove.raise(static_cast<float>(x) * kTwipsPerPixel, static_cast<float>(y) * kTwipsPerPixel);
  }
};

}  // namespace nerolith::controls
