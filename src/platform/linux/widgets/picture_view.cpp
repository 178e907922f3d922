#include "platform/linux/widgets/picture_view.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "platform/linux/widgets/control_binding.h"
#include "platform/linux/widgets/product_icon.h"
#include "platform/linux/widgets/quietly.h"
#include "platform/linux/widgets/theme.h"

namespace nerolith::widgets {
namespace {

constexpr int kRim = 6;

}  // namespace

PictureView::PictureView(controls::PictureBox& picture, QWidget* parent)
    : QWidget(parent), picture_(picture) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  new ControlBinding(*this, picture, {});
}

void PictureView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  theme::paintRecess(painter, rect(), theme::kWell, theme::kWell);
  const int side = std::max(1, std::min(width(), height()) - 2 * kRim);
  QPixmap icon = productIcon(static_cast<int>(side * devicePixelRatioF()));
  icon.setDevicePixelRatio(devicePixelRatioF());
  painter.drawPixmap((width() - side) / 2, (height() - side) / 2, icon);
}

void PictureView::mouseMoveEvent(QMouseEvent* event) {
  const QPoint place = event->position().toPoint();
  quietly([&] { picture_.userMouseMove(place.x(), place.y()); });
}

}  // namespace nerolith::widgets
