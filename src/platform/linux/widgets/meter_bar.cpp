#include "platform/linux/widgets/meter_bar.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "platform/linux/widgets/control_binding.h"
#include "platform/linux/widgets/glass_colour.h"
#include "platform/linux/widgets/theme.h"

namespace nerolith::widgets {
namespace {

constexpr int kPitch = 6;
constexpr int kLight = 4;
constexpr int kUnlitAlpha = 44;

}  // namespace

MeterBar::MeterBar(controls::ProgressBar& bar, QWidget* parent) : QProgressBar(parent), bar_(bar) {
  setRange(0, 100);
  setTextVisible(false);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  new ControlBinding(*this, bar, [this] { refresh(); });
}

int MeterBar::lights() const { return std::max(1, (width() + kPitch - kLight) / kPitch); }

/// Any sound at all lights the first one.
int MeterBar::litLights() const {
  const double share = std::clamp<double>(bar_.value(), 0, 100) / 100;
  return static_cast<int>(std::ceil(share * lights()));
}

void MeterBar::refresh() {
  if (litLights() != shown_) update();
  setValue(static_cast<int>(std::lround(std::clamp(bar_.value(), 0.0F, 100.0F))));
}

void MeterBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  shown_ = litLights();
  const int count = lights();
  for (int i = 0; i < count; ++i) {
    QColor colour = toQColor(bar_.colourAt(100.0F * static_cast<float>(i) / count));
    if (i >= shown_) colour.setAlpha(kUnlitAlpha);
    painter.setBrush(colour);
    painter.drawRoundedRect(QRectF(i * kPitch, 0, kLight, height()), 1, 1);
  }
}

}  // namespace nerolith::widgets
