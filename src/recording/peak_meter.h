// What the meter and its indicator show of a peak.
#pragma once

#include <cstdint>

#include "controls/colour.h"

namespace nerolith::recording {

inline constexpr controls::Colour kLevelGood = 49152;
inline constexpr controls::Colour kLevelHigh = 33023;
inline constexpr controls::Colour kLevelTooHigh = 255;

/// 0..100 percent. The divisor is beyond what a sample can be: the bar never quite reaches
/// its end.
inline float meterPercent(std::int32_t peak) {
  return static_cast<float>(peak) / 32769.0F * 100.0F;
}

/// Orange from 21500 to 30000, both included; green below, red above.
inline controls::Colour indicatorColour(std::int32_t peak) {
  if (peak > 30000) return kLevelTooHigh;
  return peak < 21500 ? kLevelGood : kLevelHigh;
}

}  // namespace nerolith::recording
