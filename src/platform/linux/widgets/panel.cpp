#include "platform/linux/widgets/panel.h"

#include <QPaintEvent>
#include <QPainter>

#include "platform/linux/widgets/theme.h"

namespace nerolith::widgets {

void Panel::paintEvent(QPaintEvent* event) {
  if (look_ == controls::Look::Plain) return;
  QPainter painter(this);
  if (look_ == controls::Look::Group) return theme::paintPlate(painter, rect());
  const bool glass = look_ == controls::Look::Glass;
  const QColor top = glass ? theme::kGlass : theme::kWell;
  const QColor bottom = glass ? theme::kGlassBottom : theme::kWell;
  // The digits lay bare a piece far from the rim every second: that needs no rim drawn.
  if (theme::insideRecess(rect()).contains(event->rect()))
    painter.fillRect(event->rect(), theme::recessFill(rect(), top, bottom));
  else
    theme::paintRecess(painter, rect(), top, bottom);
}

}  // namespace nerolith::widgets
