// What a lamp says to those who do not see it.
#pragma once

#include <algorithm>

#include "controls/colour.h"

namespace nerolith::controls {

/// A lamp without a colour is dark.
constexpr bool lampLit(Colour colour) {
  const auto [low, high] = std::minmax({redOf(colour), greenOf(colour), blueOf(colour)});
  return high - low > 40;
}

/// Of a lamp that stands for a state: "off", "on", or "waiting", which is yellow.
constexpr const char* lampState(Colour colour) {
  if (colour == kYellow) return "waiting";
  return lampLit(colour) ? "on" : "off";
}

/// Of a lamp whose colour is what it has to say: "off" or the colour's name.
constexpr const char* lampColour(Colour colour) {
  if (!lampLit(colour)) return "off";
  if (redOf(colour) < 128) return greenOf(colour) < 128 ? "blue" : "green";
  if (greenOf(colour) < 64) return "red";
  return greenOf(colour) < 192 ? "orange" : "yellow";
}

}  // namespace nerolith::controls
