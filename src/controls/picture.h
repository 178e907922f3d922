// A decoded picture.
#pragma once

#include <cstdint>
#include <vector>

namespace nerolith::controls {

/// Rows from the top, pixels from the left, 0xAARRGGBB. Empty: no picture.
struct Picture {
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> pixels;

  bool empty() const { return pixels.empty(); }
};

}  // namespace nerolith::controls
