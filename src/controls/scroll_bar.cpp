#include "controls/scroll_bar.h"

#include <algorithm>

#include "base/failure.h"

namespace nerolith::controls {

std::int16_t ScrollBar::held(int value) const {
  const auto [low, high] = std::minmax(min_, max_);
  return static_cast<std::int16_t>(std::clamp(value, int{low}, int{high}));
}

void ScrollBar::followRange() {
  if (assign(value_, held(value_))) change.raise();
}

void ScrollBar::setMin(std::int16_t min) {
  if (assign(min_, min)) followRange();
}

void ScrollBar::setMax(std::int16_t max) {
  if (assign(max_, max)) followRange();
}

void ScrollBar::setValue(std::int16_t value) {
  if (held(value) != value) throw base::Failure("The value lies outside the scroll bar's range.");
  if (assign(value_, value)) change.raise();
}

void ScrollBar::userDrag(int value) {
  if (!enabled()) return;
  assign(value_, held(value));
  scroll.raise();
}

void ScrollBar::userRelease() {
  if (enabled()) change.raise();
}

void ScrollBar::userMove(int value) {
  if (enabled() && assign(value_, held(value))) change.raise();
}

}  // namespace nerolith::controls
