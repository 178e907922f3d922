#include "platform/linux/widgets/theme.h"

#include <QApplication>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <algorithm>

namespace nerolith::widgets::theme {
namespace {

QColor withAlpha(QColor colour, int alpha) {
  colour.setAlpha(alpha);
  return colour;
}

QColor mixed(const QColor& one, const QColor& other, qreal share) {
  const auto part = [share](int a, int b) { return static_cast<int>(a + (b - a) * share); };
  return QColor(part(one.red(), other.red()), part(one.green(), other.green()),
                part(one.blue(), other.blue()));
}

}  // namespace

QPalette palette() {
  QPalette palette(QColor(0x2b, 0x30, 0x36), kPanelMiddle);
  palette.setColor(QPalette::Base, kWell);
  palette.setColor(QPalette::AlternateBase, kPanelBottom);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                          QPalette::BrightText, QPalette::ToolTipText})
    palette.setColor(role, kInk);
  palette.setColor(QPalette::PlaceholderText, kFaintInk);
  palette.setColor(QPalette::ToolTipBase, QColor(0x33, 0x3a, 0x42));
  palette.setColor(QPalette::Highlight, kSelection);
  palette.setColor(QPalette::HighlightedText, kSelectionInk);
  palette.setColor(QPalette::Link, kFocus);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, QColor(0x6a, 0x73, 0x7b));
  return palette;
}

QFont fontFor(controls::Look look) {
  using controls::Look;
  QFont font = QApplication::font();
  font.setPixelSize(12);
  switch (look) {
    case Look::Title:
      font.setPixelSize(13);
      font.setLetterSpacing(QFont::AbsoluteSpacing, 0.5);
      break;
    case Look::CaptionKey:
      font.setPixelSize(15);
      break;
    case Look::Song:
      font.setPixelSize(20);
      break;
    case Look::SongList:
      font.setPixelSize(13);
      break;
    case Look::Tag:
      font.setPixelSize(10);
      font.setCapitalization(QFont::AllUppercase);
      font.setLetterSpacing(QFont::AbsoluteSpacing, 1.3);
      break;
    default:
      break;
  }
  return font;
}

void paintPanel(QPainter& painter, const QRectF& area, qreal height) {
  QLinearGradient panel(0, 0, 0, height);
  panel.setColorAt(0, kPanelTop);
  panel.setColorAt(0.45, kPanelMiddle);
  panel.setColorAt(1, kPanelBottom);
  painter.fillRect(area, panel);
}

QLinearGradient recessFill(const QRectF& area, const QColor& top, const QColor& bottom) {
  QLinearGradient fill(area.left(), area.top(), area.left(), area.bottom() - 1);
  fill.setColorAt(0, top);
  fill.setColorAt(1, bottom);
  return fill;
}

QRectF insideRecess(const QRectF& area) {
  return area.adjusted(kRound, kRound, -kRound, -kRound - 1);
}

void paintRecess(QPainter& painter, const QRectF& area, const QColor& top, const QColor& bottom) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(255, 255, 255, 22));  // the lower rim catches the light
  painter.drawRoundedRect(area, kRound, kRound);
  const QRectF inside = area.adjusted(0, 0, 0, -1);
  painter.setBrush(recessFill(area, top, bottom));
  painter.drawRoundedRect(inside, kRound, kRound);
  painter.setBrush(Qt::NoBrush);
  for (int depth = 0; depth < 3; ++depth) {
    painter.setPen(QPen(QColor(0, 0, 0, 110 - 34 * depth), 1));
    const qreal in = 0.5 + depth;
    QPainterPath rim;
    rim.moveTo(inside.left() + in, inside.top() + kRound + in + 8);
    rim.lineTo(inside.left() + in, inside.top() + kRound);
    rim.quadTo(inside.left() + in, inside.top() + in, inside.left() + kRound, inside.top() + in);
    rim.lineTo(inside.right() - kRound, inside.top() + in);
    rim.quadTo(inside.right() - in, inside.top() + in, inside.right() - in, inside.top() + kRound);
    rim.lineTo(inside.right() - in, inside.top() + kRound + in + 8);
    painter.drawPath(rim);
  }
  painter.restore();
}

void paintPlate(QPainter& painter, const QRectF& area) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(QColor(0, 0, 0, 46));
  painter.setPen(QPen(QColor(255, 255, 255, 20), 1));
  painter.drawRoundedRect(area.adjusted(0.5, 0.5, -0.5, -0.5), kRound, kRound);
  painter.restore();
}

void paintKey(QPainter& painter, const QRectF& area, KeyState state, const QColor& tint) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  const bool raised = state == KeyState::Idle || state == KeyState::Hovered;
  painter.setBrush(QColor(0, 0, 0, 90));
  painter.drawRoundedRect(area, kRound, kRound);
  const QRectF key = area.adjusted(0, 0, 0, -1);
  QColor top = kButtonTop;
  QColor bottom = kButtonBottom;
  if (tint.isValid()) {
    top = mixed(top, tint, 0.09);
    bottom = mixed(bottom, tint, 0.08);
  }
  if (state == KeyState::Hovered) {
    top = top.lighter(112);
    bottom = bottom.lighter(112);
  }
  if (state == KeyState::Pressed) {
    top = bottom.darker(118);
    bottom = bottom.lighter(104);
  }
  if (state == KeyState::Disabled) top = bottom = mixed(kButtonBottom, kPanelMiddle, 0.5);
  QLinearGradient fill(key.topLeft(), key.bottomLeft());
  fill.setColorAt(0, top);
  fill.setColorAt(1, bottom);
  painter.setBrush(fill);
  painter.drawRoundedRect(key, kRound, kRound);
  if (raised) {
    painter.setPen(QPen(QColor(255, 255, 255, 34), 1));
    painter.drawLine(QPointF(key.left() + kRound, key.top() + 0.5),
                     QPointF(key.right() - kRound, key.top() + 0.5));
  }
  painter.restore();
}

bool lampLit(const QColor& colour) { return colour.hslSaturation() > 40; }

void paintLamp(QPainter& painter, const QPointF& centre, qreal size, const QColor& colour) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  const qreal radius = size / 2;
  const bool lit = lampLit(colour);
  if (lit) {
    const qreal reach = radius + 4;
    QRadialGradient light(centre, reach);
    light.setColorAt(0, withAlpha(colour, 150));
    light.setColorAt(0.6, withAlpha(colour, 90));
    light.setColorAt(1, withAlpha(colour, 0));
    painter.setBrush(light);
    painter.drawEllipse(centre, reach, reach);
  }
  QRadialGradient bulb(centre, radius * 1.25, centre - QPointF(radius * 0.35, radius * 0.4));
  const QColor off(0x7c, 0x82, 0x88);
  bulb.setColorAt(0, lit ? mixed(colour, Qt::white, 0.62) : off.lighter(135));
  bulb.setColorAt(0.55, lit ? colour : off.darker(125));
  bulb.setColorAt(1, lit ? colour.darker(150) : off.darker(190));
  painter.setBrush(bulb);
  painter.setPen(QPen(QColor(0, 0, 0, 150), 1));
  painter.drawEllipse(centre, radius, radius);
  painter.restore();
}

QColor onPanel(const QColor& colour, const QColor& ink) {
  return ink.lightness() < 128 ? colour.darker(210) : colour;
}

void paintFocus(QPainter& painter, const QRectF& area, qreal round, const QColor& colour) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(colour, 1.5));
  painter.drawRoundedRect(area.adjusted(1, 1, -1, -1), round - 1, round - 1);
  painter.restore();
}

}  // namespace nerolith::widgets::theme
