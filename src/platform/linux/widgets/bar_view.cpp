#include "platform/linux/widgets/bar_view.h"

#include <QAccessible>
#include <algorithm>
#include <cmath>
#include <utility>

namespace nerolith::widgets {

qreal BarView::share() const { return std::clamp<qreal>(bar_.value(), 0, 100) / 100; }

int BarView::value() const { return static_cast<int>(std::lround(100 * share())); }

void BarView::tellValue() {
  if (!QAccessible::isActive() || std::exchange(told_, value()) == value()) return;
  QAccessibleValueChangeEvent change(this, value());
  QAccessible::updateAccessibility(&change);
}

}  // namespace nerolith::widgets
