// Roundings and conversions of numbers, each named for what it does at the edges.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace nerolith::base {

/// To the nearest whole number, ties to even (2.5 -> 2, 3.5 -> 4, -0.5 -> 0).
inline double roundHalfEven(double value) {
  const double below = std::floor(value);
  const double fraction = value - below;
  if (fraction < 0.5) return below;
  if (fraction > 0.5) return below + 1.0;
  return std::fmod(below, 2.0) == 0.0 ? below : below + 1.0;
}

/// Rounded half-even and held to a 16-bit integer's range; not-a-number becomes 0.
inline std::int16_t toInt16Clamped(double value) {
  if (std::isnan(value)) return 0;
  using Limits = std::numeric_limits<std::int16_t>;
  return static_cast<std::int16_t>(
      std::clamp(roundHalfEven(value), double{Limits::min()}, double{Limits::max()}));
}

/// Rounded half-even and held to a 32-bit integer's range; not-a-number becomes 0.
inline std::int32_t toInt32Clamped(double value) {
  if (std::isnan(value)) return 0;
  using Limits = std::numeric_limits<std::int32_t>;
  return static_cast<std::int32_t>(
      std::clamp(roundHalfEven(value), double{Limits::min()}, double{Limits::max()}));
}

}  // namespace nerolith::base
