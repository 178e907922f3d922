#include "platform/windows/forms/level_bar.h"

#include <commctrl.h>

#include <algorithm>
#include <cmath>

#include "platform/windows/forms/wide_text.h"

namespace nerolith::windows_forms {
namespace {

constexpr Ink kTrough{0x22, 0x30, 0x2c};

}  // namespace

LevelBar::LevelBar(FormGround& ground, controls::ProgressBar& bar, controls::Look look)
    : ControlView(ground, bar), bar_(bar), level_(look != controls::Look::Progress) {
  create({PROGRESS_CLASSW, WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, 0, ground.window()});
  SendMessageW(handle(), PBM_SETRANGE32, 0, 100);
  setName(wideOf(bar.accessibleName()));
  setSpokenName({});
  bind();
}

Extent LevelBar::extent() const {
  return {theme().px(88), theme().px(5), theme().px(24), theme().px(5), false, false};
}

void LevelBar::refresh() {
  const auto percent = static_cast<WPARAM>(std::lround(std::clamp(bar_.value(), 0.0F, 100.0F)));
  SendMessageW(handle(), PBM_SETPOS, percent, 0);
  repaint();
}

void LevelBar::paint(Canvas& canvas) {
  const double round = canvas.height() / 2.0;
  canvas.fill(Shape().roundedRect(canvas.area(), round), kTrough);
  const double share = std::clamp(bar_.value(), 0.0F, 100.0F) / 100.0;
  if (share <= 0) return;
  const double end = std::max(canvas.width() * share, 1.0);
  canvas.fill(Shape().roundedRect({0, 0, end, double(canvas.height())}, round),
              level_ && share < 0.5 ? ink::kAmber : ink::kAccent);
}

}  // namespace nerolith::windows_forms
