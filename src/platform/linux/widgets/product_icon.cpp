#include "platform/linux/widgets/product_icon.h"

#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <QPainterPath>

#include "platform/linux/widgets/theme.h"

namespace nerolith::widgets {
namespace {

constexpr int kDrawnOn = 128;  // side of the sheet that the shapes are measured on

void paintPlate(QPainter& painter) {
  QLinearGradient plate(0, 6, 0, 122);
  plate.setColorAt(0, QColor(0x3a, 0x41, 0x49));
  plate.setColorAt(1, theme::kPanelBottom);
  painter.setPen(QPen(QColor(255, 255, 255, 36), 1.5));
  painter.setBrush(plate);
  painter.drawRoundedRect(QRectF(6.75, 6.75, 114.5, 114.5), 23.25, 23.25);
  painter.setPen(Qt::NoPen);
  painter.setBrush(theme::kGlass);
  painter.drawRoundedRect(QRectF(20, 22, 88, 84), 12, 12);
}

/// One song sinks while the next one rises: the mix.
void paintMix(QPainter& painter) {
  QPainterPath sinking(QPointF(30, 44));
  sinking.lineTo(52, 44);
  sinking.cubicTo(72, 44, 74, 92, 98, 92);
  QPainterPath rising(QPointF(30, 92));
  rising.cubicTo(54, 92, 56, 44, 76, 44);
  rising.lineTo(98, 44);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(theme::kAmber, 8, Qt::SolidLine, Qt::RoundCap));
  painter.drawPath(sinking);
  painter.setPen(QPen(QColor(0x3f, 0xe0, 0x7c), 8, Qt::SolidLine, Qt::RoundCap));
  painter.drawPath(rising);
}

void paintLamp(QPainter& painter) {
  QRadialGradient lamp(QPointF(62, 65), 13);
  lamp.setColorAt(0, QColor(0xff, 0xd0, 0xc8));
  lamp.setColorAt(0.5, QColor(0xff, 0x3b, 0x2f));
  lamp.setColorAt(1, QColor(0x8f, 0x10, 0x0a));
  painter.setPen(QPen(theme::kGlass, 3));
  painter.setBrush(lamp);
  painter.drawEllipse(QPointF(64, 68), 9, 9);
}

}  // namespace

QPixmap productIcon(int side) {
  QPixmap picture(side, side);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(static_cast<qreal>(side) / kDrawnOn, static_cast<qreal>(side) / kDrawnOn);
  paintPlate(painter);
  paintMix(painter);
  paintLamp(painter);
  return picture;
}

void giveProductIcon() {
  if (!QApplication::windowIcon().isNull()) return;
  QIcon icon;
  for (const int side : {16, 32, 48, 64}) icon.addPixmap(productIcon(side));
  QApplication::setWindowIcon(icon);
}

}  // namespace nerolith::widgets
