#include "platform/linux/widgets/slim_scroll_bar.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "platform/linux/widgets/theme.h"

namespace nerolith::widgets {
namespace {

constexpr qreal kShortest = 28;

}  // namespace

SlimScrollBar::SlimScrollBar(QWidget* parent) : QScrollBar(Qt::Vertical, parent) {
  setAttribute(Qt::WA_Hover);
  setAttribute(Qt::WA_OpaquePaintEvent, false);
  setAutoFillBackground(false);
}

QRectF SlimScrollBar::thumb() const {
  const qreal room = height() - 8;
  const qreal whole = maximum() - minimum() + pageStep();
  const qreal length = std::clamp(room * pageStep() / std::max(whole, 1.0), kShortest, room);
  const qreal span = std::max(maximum() - minimum(), 1);
  const qreal top = 4 + (room - length) * (value() - minimum()) / span;
  return QRectF(3, top, width() - 6, length);
}

void SlimScrollBar::moveThumb(qreal top) {
  const qreal room = height() - 8 - thumb().height();
  if (room > 0)
    setValue(minimum() + static_cast<int>(std::lround((top - 4) / room * (maximum() - minimum()))));
}

void SlimScrollBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (maximum() <= minimum()) return;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  const bool lively = grip_ >= 0 || underMouse();
  painter.setBrush(lively ? QColor(0x6a, 0x75, 0x80) : QColor(0x45, 0x4e, 0x57));
  const QRectF bar = thumb();
  painter.drawRoundedRect(bar, bar.width() / 2, bar.width() / 2);
}

void SlimScrollBar::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const qreal y = event->position().y();
  const QRectF bar = thumb();
  if (y < bar.top())
    triggerAction(SliderPageStepSub);
  else if (y > bar.bottom())
    triggerAction(SliderPageStepAdd);
  else
    grip_ = y - bar.top();
  update();
}

void SlimScrollBar::mouseMoveEvent(QMouseEvent* event) {
  if (grip_ >= 0) moveThumb(event->position().y() - grip_);
}

void SlimScrollBar::mouseReleaseEvent(QMouseEvent*) {
  grip_ = -1;
  update();
}

}  // namespace nerolith::widgets
