// Where things lie in the player's window at its first size, in pixels from its upper left corner.
#pragma once

#include <cmath>

namespace nerolith::endtoend::places {

inline constexpr int kSliderY = 200;
inline constexpr int kMargin = 14;
inline constexpr int kSliderEnd = 9;  // from the slider's edge to the end of its track

/// The track's place for a share of its length.
inline int sliderX(int windowWidth, double share) {
  const int left = kMargin + kSliderEnd;
  return left + static_cast<int>(std::lround(share * (windowWidth - 2 * left)));
}

inline constexpr int kTimeX = 100, kTimeY = 90;
inline constexpr int kDriveX = 60, kDriveY = 300;
inline constexpr int kListX = 200, kListY = 420;

}  // namespace nerolith::endtoend::places
