#include "platform/linux/widgets/seven_segments.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmapCache>
#include <QTransform>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

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

QPainterPath shapeOf(QChar sign, bool lit) {
  QPainterPath path;
  path.setFillRule(Qt::WindingFill);
  if (sign != QLatin1Char(':'))
    addDigit(path, 0, lit ? barsOf(sign) : static_cast<std::uint8_t>(~barsOf(sign)));
  else if (lit)
    addColon(path, 0);
  return path;
}

qreal advanceOf(QChar sign) {
  return (sign == QLatin1Char(':') ? kColonWidth : kDigitWidth) + kSpacing;
}

/// What the signs of one display have in common.
struct Face {
  qreal scale;
  QColor colour;
  SegmentGlow glow;
  qreal pixelRatio;
};

/// Room for the glow around a sign.
constexpr int kMargin = 7;

void paintSign(QPainter& painter, QChar sign, const Face& face) {
  QTransform place;
  place.translate(kMargin + kLean * face.scale, kMargin);
  place.shear(-kLean, 0);
  place.scale(face.scale, face.scale);
  painter.setRenderHint(QPainter::Antialiasing);
  const bool soft = face.glow == SegmentGlow::Soft;
  QColor faint = face.colour;
  faint.setAlphaF(soft ? 0.085F : 0.06F);
  painter.fillPath(place.map(shapeOf(sign, false)), faint);
  const QPainterPath bars = place.map(shapeOf(sign, true));
  for (const int reach : {11, 7, 4}) {
    if (!soft) break;
    QColor light = face.colour;
    light.setAlphaF(0.055F);
    painter.strokePath(bars, QPen(light, reach, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  }
  painter.fillPath(bars, face.colour);
}

/// Each sign is drawn once for its size and colour: a clock that strokes its glow anew every second
/// would cost more than the music.
QPixmap pictureOf(QChar sign, const Face& face) {
  const QString key = QStringLiteral("seven segments %1 %2 %3 %4 %5")
                          .arg(sign)
                          .arg(face.scale)
                          .arg(face.colour.rgba())
                          .arg(static_cast<int>(face.glow))
                          .arg(face.pixelRatio);
  QPixmap picture;
  if (QPixmapCache::find(key, &picture)) return picture;
  const QSizeF size((advanceOf(sign) + kLean) * face.scale + 2 * kMargin, face.scale + 2 * kMargin);
  picture = QPixmap((size * face.pixelRatio).toSize() + QSize(1, 1));
  picture.setDevicePixelRatio(face.pixelRatio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  paintSign(painter, sign, face);
  painter.end();
  QPixmapCache::insert(key, picture);
  return picture;
}

qreal scaleOf(const QRectF& room, const QString& text) {
  return std::min(room.height(), room.width() / widthOf(text));
}

/// Where the signs stand with the glow around them, from the left, before they are put on pixels.
std::vector<QRectF> placesOf(const QRectF& room, const QString& text) {
  const qreal scale = scaleOf(room, text);
  std::vector<QRectF> places;
  qreal x = room.left();
  for (const QChar sign : text) {
    const QRectF bars(x, room.center().y() - scale / 2, (advanceOf(sign) + kLean) * scale, scale);
    places.push_back(bars.adjusted(-kMargin, -kMargin, kMargin, kMargin));
    x += advanceOf(sign) * scale;
  }
  return places;
}

/// The whole pixels that a sign there may touch, rounded either way.
QRect touchedBy(const QRectF& place) { return place.toAlignedRect().adjusted(-1, -1, 1, 1); }

}  // namespace

void paintSevenSegments(QPainter& painter, const QRectF& room, const QRect& area,
                        const QString& text, const QColor& colour, SegmentGlow glow) {
  if (text.isEmpty() || room.isEmpty()) return;
  const qreal ratio = painter.device()->devicePixelRatioF();
  const Face face = {scaleOf(room, text), colour, glow, ratio};
  const auto onPixel = [ratio](qreal value) { return std::round(value * ratio) / ratio; };
  const auto places = placesOf(room, text);
  for (std::size_t i = 0; i < places.size(); ++i) {
    if (!touchedBy(places[i]).intersects(area)) continue;
    painter.drawPixmap(QPointF(onPixel(places[i].left()), onPixel(places[i].top())),
                       pictureOf(text[static_cast<qsizetype>(i)], face));
  }
}

QRect changedSigns(const QRectF& room, const QString& before, const QString& after) {
  const auto left = placesOf(room, before), here = placesOf(room, after);
  const bool moved = left != here;
  QRect changed;
  for (std::size_t i = 0; i < std::max(left.size(), here.size()); ++i) {
    const auto sign = static_cast<qsizetype>(i);
    if (!moved && before[sign] == after[sign]) continue;
    for (const auto& places : {left, here})
      if (i < places.size()) changed |= touchedBy(places[i]);
  }
  return changed;
}

}  // namespace nerolith::widgets
