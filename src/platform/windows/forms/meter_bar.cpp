#include "platform/windows/forms/meter_bar.h"

#include <commctrl.h>

#include <algorithm>
#include <cmath>

#include "platform/windows/forms/wide_text.h"

namespace nerolith::windows_forms {
namespace {

constexpr double kPitch = 6;
constexpr double kLight = 4;
constexpr float kUnlitAlpha = 0.17F;

}  // namespace

MeterBar::MeterBar(FormGround& ground, controls::ProgressBar& bar)
    : ControlView(ground, bar), bar_(bar) {
  create({PROGRESS_CLASSW, WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, 0, ground.window()});
  SendMessageW(handle(), PBM_SETRANGE32, 0, 100);
  setName(wideOf(bar.accessibleName()));
  setSpokenName({});
  bind();
}

Extent MeterBar::extent() const {
  return {theme().px(200), theme().px(18), theme().px(60), theme().px(12), true, false};
}

int MeterBar::lightsOf(int width) const {
  const double pitch = theme().exact(kPitch);
  return std::max(1, static_cast<int>((width + pitch - theme().exact(kLight)) / pitch));
}

/// Any sound at all lights the first one.
int MeterBar::litOf(int lights) const {
  return static_cast<int>(std::ceil(std::clamp(double{bar_.value()}, 0.0, 100.0) / 100 * lights));
}

void MeterBar::refresh() {
  const auto percent = static_cast<WPARAM>(std::lround(std::clamp(bar_.value(), 0.0F, 100.0F)));
  SendMessageW(handle(), PBM_SETPOS, percent, 0);
  RECT area{};
  GetClientRect(handle(), &area);
  if (litOf(lightsOf(area.right)) != shown_) repaint();
}

void MeterBar::paint(Canvas& canvas) {
  const double pitch = theme().exact(kPitch);
  const double light = theme().exact(kLight);
  const int count = lightsOf(canvas.width());
  const int lit = shown_ = litOf(count);
  for (int i = 0; i < count; ++i) {
    const Ink colour =
        inkOf(bar_.colourAt(100.0F * static_cast<float>(i) / static_cast<float>(count)));
    const Area place{i * pitch, 0, i * pitch + light, double(canvas.height())};
    canvas.fill(Shape().roundedRect(place, theme().exact(1)),
                i < lit ? colour : colour.faded(kUnlitAlpha));
  }
}

}  // namespace nerolith::windows_forms
