#include "platform/linux/widgets/panel.h"

#include <QPainter>

#include "platform/linux/widgets/theme.h"

namespace nerolith::widgets {

void Panel::paintEvent(QPaintEvent*) {
  if (look_ == controls::Look::Plain) return;
  QPainter painter(this);
  if (look_ == controls::Look::Glass)
    theme::paintRecess(painter, rect(), theme::kGlass, theme::kGlassBottom);
  else
    theme::paintRecess(painter, rect(), theme::kWell, theme::kWell);
}

}  // namespace nerolith::widgets
