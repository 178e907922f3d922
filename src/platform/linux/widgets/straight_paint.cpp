#include "platform/linux/widgets/straight_paint.h"

#include <QBackingStore>
#include <QWindow>
#include <cmath>
#include <cstring>

namespace nerolith::widgets {
namespace {

QRect scaled(const QRect& area, int scale) { return {area.topLeft() * scale, area.size() * scale}; }

/// Opaque pixels are the same in both.
bool takesPixels(const QImage& screen) {
  return screen.format() == kStraightFormat || screen.format() == QImage::Format_RGB32;
}

/// Of two pictures in device pixels: `from` of one goes to `to` of the other.
bool copyPixels(const QImage& picture, const QRect& from, QImage& screen, const QPoint& to) {
  const QRect into(to, from.size());
  if (picture.format() != kStraightFormat || !takesPixels(screen)) return false;
  if (!picture.rect().contains(from) || !screen.rect().contains(into)) return false;
  const auto pixel = sizeof(QRgb);
  for (int y = 0; y < from.height(); ++y) {
    std::memcpy(screen.scanLine(into.top() + y) + into.left() * pixel,
                picture.constScanLine(from.top() + y) + from.left() * pixel, from.width() * pixel);
  }
  return true;
}

}  // namespace

bool putStraight(QWidget& widget, const QRect& area, const QImage& picture) {
  const QWidget* window = widget.window();
  QBackingStore* store = window->backingStore();
  QWindow* shown = window->windowHandle();
  if (!widget.isVisible() || !store || !shown || !shown->isExposed()) return false;
  const QRect place(widget.mapTo(window, area.topLeft()), area.size());
  if (!QRect(QPoint(), store->size()).contains(place)) return false;
  // To name the place here would be to wait until the screen has taken what was there before. It
  // has, long since; and half of a light would be mended before anybody could see it.
  store->beginPaint(QRegion());
  bool copied = false;
  if (auto* screen = dynamic_cast<QImage*>(store->paintDevice())) {
    const int scale = static_cast<int>(std::lround(screen->devicePixelRatio()));
    copied = screen->devicePixelRatio() == scale && picture.devicePixelRatio() == scale &&
             copyPixels(picture, scaled(area, scale), *screen, place.topLeft() * scale);
  }
  store->endPaint();
  if (copied) store->flush(place, shown);
  return copied;
}

}  // namespace nerolith::widgets
