#include "platform/linux/widgets/meter_bar.h"

#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "platform/linux/widgets/control_binding.h"
#include "platform/linux/widgets/glass_colour.h"
#include "platform/linux/widgets/straight_paint.h"
#include "platform/linux/widgets/theme.h"

namespace nerolith::widgets {
namespace {

constexpr int kPitch = 6;
constexpr int kLight = 4;
constexpr int kUnlitAlpha = 44;

}  // namespace

MeterBar::MeterBar(controls::ProgressBar& bar, QWidget* parent)
    : BarView(bar, parent), panel_(dynamic_cast<Panel*>(parent)) {
  if (panel_) panel_->installEventFilter(this);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  new ControlBinding(*this, bar, [this] { refresh(); });
}

int MeterBar::lights() const { return std::max(1, (width() + kPitch - kLight) / kPitch); }

/// Any sound at all lights the first one.
int MeterBar::litLights() const { return static_cast<int>(std::ceil(share() * lights())); }

/// Music moves the meter ten times a second, by a few lights only. Nothing else moves with it that
/// could be painted in the same go: at once is one round of the event loop less.
void MeterBar::refresh() {
  const int lit = litLights();
  const auto [from, to] = std::minmax({shown_, lit});
  shown_ = lit;
  const QRect changed(from * kPitch, 0, (to - from) * kPitch, height());
  if (from < to && !showStraight(changed & rect())) repaint(changed);
  tellValue();
}

/// What changed is lit all through or dark all through.
bool MeterBar::showStraight(const QRect& changed) {
  if (!testAttribute(Qt::WA_OpaquePaintEvent)) return false;
  QImage& picture = changed.left() < shown_ * kPitch ? full_ : dark_;
  if (picture.isNull() || picture.devicePixelRatio() != devicePixelRatioF()) {
    picture = QImage(size() * devicePixelRatioF(), kStraightFormat);
    picture.setDevicePixelRatio(devicePixelRatioF());
    QPainter painter(&picture);
    paintLights(painter, rect(), &picture == &full_ ? lights() : 0);
  }
  return putStraight(*this, changed, picture);
}

void MeterBar::settle() {
  shown_ = litLights();
  dark_ = full_ = QImage();
  setAttribute(Qt::WA_OpaquePaintEvent, panel_ && panel_->isPlainAt(geometry()));
  update();
}

bool MeterBar::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::Resize) settle();  // the ground is another one
  return false;
}

void MeterBar::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  paintLights(painter, event->rect(), shown_);
}

void MeterBar::paintLights(QPainter& painter, const QRect& area, int lit) const {
  if (testAttribute(Qt::WA_OpaquePaintEvent)) {
    painter.translate(-pos());
    panel_->paintPlain(painter, area.translated(pos()));
    painter.translate(pos());
  }
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  const int count = lights();
  const int last = std::min(area.right() / kPitch, count - 1);
  for (int i = area.left() / kPitch; i <= last; ++i) {
    QColor colour = toQColor(bar().colourAt(100.0F * static_cast<float>(i) / count));
    if (i >= lit) colour.setAlpha(kUnlitAlpha);
    painter.setBrush(colour);
    painter.drawRoundedRect(QRectF(i * kPitch, 0, kLight, height()), 1, 1);
  }
}

}  // namespace nerolith::widgets
