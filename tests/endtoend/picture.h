// What is on the screen, as numbers.
#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

#include "endtoend/player_window.h"
#include "endtoend/private_desktop.h"

namespace nerolith::endtoend {

struct Picture {
  int width = 0, height = 0;
  std::vector<std::uint8_t> rgb;

  /// How bright a pixel is to the eye: 0 black, 1 white.
  double luminance(int x, int y) const;
};

/// A part of the screen as it is now. Throws std::runtime_error when it cannot be taken.
Picture grab(const PrivateDesktop& desktop, const Place& place);

/// How well writing stands out from its ground: 1 not at all, 21 black on white; 3 is what large
/// writing needs. Taken between the darkest and the brightest fiftieth of the pixels.
double contrastRatio(const Picture& picture);

/// How many pixels differ clearly between two pictures of one size.
int pixelsChanged(const Picture& before, const Picture& after);

}  // namespace nerolith::endtoend
