#include "platform/linux/widgets/panel.h"

#include <QPaintEvent>
#include <QPainter>

#include "platform/linux/widgets/theme.h"

namespace nerolith::widgets {

QColor Panel::top() const { return look_ == controls::Look::Glass ? theme::kGlass : theme::kWell; }

QColor Panel::bottom() const {
  return look_ == controls::Look::Glass ? theme::kGlassBottom : theme::kWell;
}

bool Panel::isPlainAt(const QRect& area) const {
  return recessed() && theme::insideRecess(rect()).contains(area);
}

void Panel::paintPlain(QPainter& painter, const QRect& area) const {
  painter.fillRect(area, theme::recessFill(rect(), top(), bottom()));
}

void Panel::paintEvent(QPaintEvent* event) {
  if (look_ == controls::Look::Plain) return;
  QPainter painter(this);
  if (!recessed()) return theme::paintPlate(painter, rect());
  // The digits lay bare a piece far from the rim every second: that needs no rim drawn.
  if (isPlainAt(event->rect()))
    paintPlain(painter, event->rect());
  else
    theme::paintRecess(painter, rect(), top(), bottom());
}

}  // namespace nerolith::widgets
