#include "platform/linux/widgets/digital_display.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <utility>

#include "platform/linux/widgets/control_binding.h"
#include "platform/linux/widgets/glass_colour.h"
#include "platform/linux/widgets/quietly.h"
#include "platform/linux/widgets/seven_segments.h"
#include "platform/linux/widgets/theme.h"

namespace nerolith::widgets {

DigitalDisplay::DigitalDisplay(controls::Label& label, QWidget* parent)
    : QLabel(parent), label_(label) {
  setFocusPolicy(Qt::TabFocus);
  setCursor(Qt::PointingHandCursor);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  new ControlBinding(*this, label, [this] { refresh(); });
}

void DigitalDisplay::refresh() {
  const QString before = std::exchange(text_, QString::fromStdString(label_.caption()));
  const QColor colour = toQColor(label_.foreColour());
  setAccessibleDescription(text_);
  // Every second one digit changes, mostly: the others need not be painted for it.
  if (colour == colour_) return update(changedSigns(room(), before, text_));
  colour_ = colour;
  update();
}

bool DigitalDisplay::onLightGlass() const { return glassFor(colour_) == theme::kLightGlass; }

QRectF DigitalDisplay::room() const {
  // On dark glass the digits stand flush with the word below them.
  return QRectF(rect()).adjusted(onLightGlass() ? 12 : 2, 7, -10, -9);
}

void DigitalDisplay::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const bool light = onLightGlass();
  if (light) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(glassFor(colour_));
    painter.drawRoundedRect(QRectF(rect()), theme::kRound, theme::kRound);
  }
  paintSevenSegments(painter, room(), event->rect(), text_, colour_,
                     light ? SegmentGlow::None : SegmentGlow::Soft);
  if (hasFocus()) theme::paintFocus(painter, rect());
}

void DigitalDisplay::press(controls::MouseButton button) {
  quietly([this, button] {
    label_.mouseDown.raise(button);
    label_.mouseUp.raise(button);
    if (button == controls::MouseButton::Left) label_.userClick();
  });
}

void DigitalDisplay::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Space)
    press(controls::MouseButton::Left);
  else if (event->key() == Qt::Key_Menu)
    press(controls::MouseButton::Right);
  else
    QLabel::keyPressEvent(event);
}

void DigitalDisplay::mousePressEvent(QMouseEvent* event) { event->accept(); }

void DigitalDisplay::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
    quietly([this] { label_.userClick(); });
}

void DigitalDisplay::contextMenuEvent(QContextMenuEvent* event) { event->accept(); }

}  // namespace nerolith::widgets
