// Texts of settings as numbers: what is no number is 0, what is too large is held to the range.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string_view>

#include "base/lenient_number.h"
#include "base/rounding.h"

namespace nerolith::settings {

/// The leading number in single precision, held to its finite range.
inline float singleOf(std::string_view text) {
  constexpr double kLargest = std::numeric_limits<float>::max();
  return static_cast<float>(std::clamp(base::leadingNumber(text), -kLargest, kLargest));
}

/// The leading number rounded to the nearest whole one, ties to even, held to 16 bits.
inline std::int16_t integer16Of(std::string_view text) {
  return base::toInt16Clamped(base::leadingNumber(text));
}

}  // namespace nerolith::settings
