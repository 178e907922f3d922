#include "player/time_label.h"

#include <algorithm>

#include "base/flag16.h"
#include "base/rounding.h"

namespace nerolith::player {

float nextPaletteNumber(float number) {
  const float next = number + 1;
  return next >= 16 ? 0 : next;
}

controls::Colour paletteColour(float number) {
  const int last = static_cast<int>(controls::kBasicPalette.size()) - 1;
  const int index = std::clamp<int>(base::toInt16Clamped(number), 0, last);
  return controls::kBasicPalette[static_cast<std::size_t>(index)];
}

TimeLabel::TimeLabel(controls::Label& label1, settings::LiveSettings& live)
    : label1_(label1), live_(live) {
  subscription_ =
      label1_.mouseDown.subscribe([this](controls::MouseButton button) { pressed(button); });
}

void TimeLabel::showColour() { label1_.setForeColour(paletteColour(live_.colour)); }

void TimeLabel::pressed(controls::MouseButton button) {
  if (button == controls::MouseButton::Left)
    live_.timeInverted = base::complement(live_.timeInverted);
  if (button == controls::MouseButton::Right) {
    live_.colour = nextPaletteNumber(live_.colour);
    showColour();
  }
}

}  // namespace nerolith::player
