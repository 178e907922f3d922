#include "platform/linux/widgets/level_bar.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "platform/linux/widgets/control_binding.h"
#include "platform/linux/widgets/theme.h"

namespace nerolith::widgets {

LevelBar::LevelBar(controls::ProgressBar& bar, QWidget* parent) : QProgressBar(parent), bar_(bar) {
  setRange(0, 100);
  setTextVisible(false);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  new ControlBinding(*this, bar, [this] {
    setValue(static_cast<int>(std::lround(std::clamp(bar_.value(), 0.0F, 100.0F))));
    update();
  });
}

void LevelBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  const qreal round = height() / 2.0;
  painter.setBrush(QColor(0x22, 0x30, 0x2c));
  painter.drawRoundedRect(QRectF(rect()), round, round);
  const float share = std::clamp(bar_.value(), 0.0F, 100.0F) / 100.0F;
  if (share <= 0) return;
  painter.setClipRect(QRectF(0, 0, width() * static_cast<qreal>(share), height()));
  painter.setBrush(share < 0.5F ? theme::kAmber : theme::kAccent);
  painter.drawRoundedRect(QRectF(rect()), round, round);
}

}  // namespace nerolith::widgets
