#include "platform/linux/widgets/level_bar.h"

#include <QPainter>
#include <cmath>

#include "platform/linux/widgets/control_binding.h"
#include "platform/linux/widgets/theme.h"

namespace nerolith::widgets {

LevelBar::LevelBar(controls::ProgressBar& bar, controls::Look look, QWidget* parent)
    : BarView(bar, parent), level_(look != controls::Look::Progress) {
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  new ControlBinding(*this, bar, [this] { refresh(); });
}

/// A fade moves the level ten times a second, but seldom by so much that it can be seen.
void LevelBar::refresh() {
  const int lit = static_cast<int>(std::lround(share() * width() * devicePixelRatioF()));
  const bool amber = low();
  if (lit != lit_ || amber != amber_) update();
  lit_ = lit;
  amber_ = amber;
  tellValue();
}

void LevelBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  const qreal round = height() / 2.0;
  painter.setBrush(QColor(0x22, 0x30, 0x2c));
  painter.drawRoundedRect(QRectF(rect()), round, round);
  if (share() <= 0) return;
  painter.setClipRect(QRectF(0, 0, width() * share(), height()));
  painter.setBrush(low() ? theme::kAmber : theme::kAccent);
  painter.drawRoundedRect(QRectF(rect()), round, round);
}

}  // namespace nerolith::widgets
