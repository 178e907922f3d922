#include "platform/linux/widgets/position_slider.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "platform/linux/widgets/control_binding.h"
#include "platform/linux/widgets/quietly.h"
#include "platform/linux/widgets/theme.h"

namespace nerolith::widgets {
namespace {

constexpr qreal kThumb = 8;

}  // namespace

PositionSlider::PositionSlider(controls::ScrollBar& bar, QWidget* parent)
    : QSlider(Qt::Horizontal, parent), bar_(bar) {
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  connect(this, &QSlider::valueChanged, this, [this](int value) {
    if (!echo_.held()) byKeyOrWheel(value);
  });
  new ControlBinding(*this, bar, [this] { refresh(); });
}

void PositionSlider::refresh() {
  const controls::EchoGuard::Hold hold(echo_);
  setRange(std::min(bar_.min(), bar_.max()), std::max(bar_.min(), bar_.max()));
  setSingleStep(bar_.smallChange());
  setPageStep(bar_.largeChange());
  setValue(bar_.value());
  const QString mark = QString::fromStdString(bar_.endMark());
  setAccessibleDescription(mark.isEmpty() ? mark : QStringLiteral("the end is marked ") + mark);
  update();
}

void PositionSlider::byKeyOrWheel(int value) {
  quietly([this, value] { bar_.userMove(value); });
}

QRectF PositionSlider::track() const {
  return QRectF(kThumb + 1, height() / 2.0, width() - 2 * kThumb - 2, 4);
}

qreal PositionSlider::thumbCentre() const {
  const QRectF line = track();
  const int span = maximum() - minimum();
  const qreal share = span > 0 ? static_cast<qreal>(value() - minimum()) / span : 0;
  return line.left() + share * line.width();
}

int PositionSlider::valueAt(qreal x) const {
  const QRectF line = track();
  const qreal share = std::clamp((x - line.left()) / std::max(line.width(), 1.0), 0.0, 1.0);
  return minimum() + static_cast<int>(std::lround(share * (maximum() - minimum())));
}

void PositionSlider::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const qreal x = event->position().x();
  if (std::abs(x - thumbCentre()) <= kThumb + 2) {
    dragging_ = true;
    update();
    return;
  }
  quietly([this, x] { bar_.userMove(valueAt(x)); });
}

void PositionSlider::mouseMoveEvent(QMouseEvent* event) {
  if (!dragging_) return;
  const int value = valueAt(event->position().x());
  if (value != this->value()) quietly([this, value] { bar_.userDrag(value); });
}

void PositionSlider::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !std::exchange(dragging_, false)) return;
  update();
  quietly([this] { bar_.userRelease(); });
}

void PositionSlider::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  const QRectF line = track();
  painter.setBrush(QColor(255, 255, 255, 20));
  painter.drawRoundedRect(line.translated(0, 1), 2, 2);
  painter.setBrush(QColor(0x0b, 0x0d, 0x0f));
  painter.drawRoundedRect(line, 2, 2);
  const QColor ink = palette().color(QPalette::Active, QPalette::WindowText);
  const QColor amber = theme::onPanel(theme::kAmber, ink);
  const qreal thumb = thumbCentre();
  if (isEnabled()) {
    painter.setBrush(theme::kAccent);
    painter.drawRoundedRect(QRectF(line.topLeft(), QPointF(thumb, line.bottom())), 2, 2);
  }
  if (!bar_.endMark().empty()) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(amber);
    painter.drawRect(QRectF(line.right() - 1, line.center().y() - 8, 2, 16));
    QFont small = theme::fontFor(controls::Look::Dim);
    small.setPixelSize(10);
    painter.setFont(small);
    painter.setPen(amber);
    painter.drawText(QRectF(0, 0, line.right() - 6, line.top() - 3),
                     Qt::AlignRight | Qt::AlignBottom, QString::fromStdString(bar_.endMark()));
  }
  const QPointF centre(thumb, line.center().y());
  QLinearGradient knob(0, centre.y() - kThumb, 0, centre.y() + kThumb);
  knob.setColorAt(0, isEnabled() ? QColor(0xf2, 0xf5, 0xf7) : QColor(0x80, 0x88, 0x90));
  knob.setColorAt(1, isEnabled() ? QColor(0xb4, 0xbd, 0xc5) : QColor(0x5c, 0x64, 0x6b));
  painter.setPen(QPen(QColor(0, 0, 0, 120), 1));
  painter.setBrush(knob);
  painter.drawEllipse(centre, kThumb - (dragging_ ? 0 : 0.5), kThumb - (dragging_ ? 0 : 0.5));
  if (hasFocus()) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(theme::onPanel(theme::kFocus, ink), 2));
    painter.drawEllipse(centre, kThumb + 1, kThumb + 1);
  }
}

}  // namespace nerolith::widgets
