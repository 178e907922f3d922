#include "platform/linux/widgets/seven_segments.h"

#include <QPainter>
#include <QPainterPath>
#include <QTransform>
#include <algorithm>
#include <array>
#include <cstdint>

namespace nerolith::widgets {
namespace {

// Bars in the order top, upper right, lower right, bottom, lower left, upper left, middle.
constexpr std::array<std::uint8_t, 10> kDigits = {0x3F, 0x06, 0x5B, 0x4F, 0x66,
                                                  0x6D, 0x7D, 0x07, 0x7F, 0x6F};
constexpr std::uint8_t kDash = 0x40;

// All in shares of the height.
constexpr qreal kDigitWidth = 0.58;
constexpr qreal kColonWidth = 0.16;
constexpr qreal kSpacing = 0.16;
constexpr qreal kBar = 0.145;
constexpr qreal kSlit = 0.014;
constexpr qreal kLean = 0.07;

std::uint8_t barsOf(QChar sign) {
  if (sign == QLatin1Char('-')) return kDash;
  const int digit = sign.digitValue();
  return digit >= 0 && digit <= 9 ? kDigits[static_cast<std::size_t>(digit)] : 0;
}

qreal widthOf(const QString& text) {
  qreal width = kLean;
  for (const QChar sign : text)
    width += (sign == QLatin1Char(':') ? kColonWidth : kDigitWidth) + kSpacing;
  return text.isEmpty() ? width : width - kSpacing;
}

/// A bar with pointed ends between two points, horizontal or vertical.
void addBar(QPainterPath& path, QPointF from, QPointF to) {
  const bool flat = from.y() == to.y();
  const QPointF along = flat ? QPointF(1, 0) : QPointF(0, 1);
  const QPointF across = flat ? QPointF(0, kBar / 2) : QPointF(kBar / 2, 0);
  from += along * kSlit;
  to -= along * kSlit;
  const QPointF tip = along * (kBar / 2);
  path.addPolygon(QPolygonF({from, from + tip - across, to - tip - across, to, to - tip + across,
                             from + tip + across, from}));
}

void addDigit(QPainterPath& path, qreal x, std::uint8_t bars) {
  const qreal h = kBar / 2;
  const qreal left = x + h;
  const qreal right = x + kDigitWidth - h;
  const std::array<std::array<QPointF, 2>, 7> places = {
      {{QPointF(left, h), QPointF(right, h)},
       {QPointF(right, h), QPointF(right, 0.5)},
       {QPointF(right, 0.5), QPointF(right, 1 - h)},
       {QPointF(left, 1 - h), QPointF(right, 1 - h)},
       {QPointF(left, 0.5), QPointF(left, 1 - h)},
       {QPointF(left, h), QPointF(left, 0.5)},
       {QPointF(left, 0.5), QPointF(right, 0.5)}}};
  for (std::size_t i = 0; i < places.size(); ++i)
    if (bars & (1U << i)) addBar(path, places[i][0], places[i][1]);
}

void addColon(QPainterPath& path, qreal x) {
  const qreal size = kBar * 1.1;
  const qreal left = x + (kColonWidth - size) / 2;
  for (const qreal middle : {0.31, 0.69}) path.addRect(QRectF(left, middle - size / 2, size, size));
}

QPainterPath shapeOf(const QString& text, bool lit) {
  QPainterPath path;
  path.setFillRule(Qt::WindingFill);
  qreal x = 0;
  for (const QChar sign : text) {
    if (sign == QLatin1Char(':')) {
      if (lit) addColon(path, x);
      x += kColonWidth + kSpacing;
    } else {
      addDigit(path, x, lit ? barsOf(sign) : static_cast<std::uint8_t>(~barsOf(sign)));
      x += kDigitWidth + kSpacing;
    }
  }
  return path;
}

}  // namespace

void paintSevenSegments(QPainter& painter, const QRectF& room, const QString& text,
                        const QColor& colour, SegmentGlow glow) {
  if (text.isEmpty() || room.isEmpty()) return;
  const qreal scale = std::min(room.height(), room.width() / widthOf(text));
  QTransform place;
  place.translate(room.left() + kLean * scale, room.center().y() - scale / 2);
  place.shear(-kLean, 0);
  place.scale(scale, scale);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  QColor faint = colour;
  faint.setAlphaF(glow == SegmentGlow::Soft ? 0.085F : 0.06F);
  painter.fillPath(place.map(shapeOf(text, false)), faint);
  const QPainterPath bars = place.map(shapeOf(text, true));
  if (glow == SegmentGlow::Soft) {
    for (const int reach : {11, 7, 4}) {
      QColor light = colour;
      light.setAlphaF(0.055F);
      painter.strokePath(bars, QPen(light, reach, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    }
  }
  painter.fillPath(bars, colour);
  painter.restore();
}

}  // namespace nerolith::widgets
