#include "platform/windows/forms/position_slider.h"

#include <commctrl.h>
#include <windowsx.h>

#include <algorithm>
#include <cmath>

#include "platform/windows/forms/quietly.h"
#include "platform/windows/forms/wide_text.h"

namespace nerolith::windows_forms {
namespace {

constexpr double kThumb = 8;

}  // namespace

PositionSlider::PositionSlider(FormGround& ground, controls::ScrollBar& bar)
    : ControlView(ground, bar), bar_(bar) {
  create({TRACKBAR_CLASSW,
          WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_TABSTOP | TBS_HORZ | TBS_NOTICKS, 0,
          ground.window()});
  setName(wideOf(bar.accessibleName()));
  setSpokenName({});
  bind();
}

Extent PositionSlider::extent() const {
  return {theme().px(240), theme().px(30), theme().px(120), theme().px(30), true, false};
}

void PositionSlider::refresh() {
  SendMessageW(handle(), TBM_SETRANGEMIN, FALSE, std::min(bar_.min(), bar_.max()));
  SendMessageW(handle(), TBM_SETRANGEMAX, FALSE, std::max(bar_.min(), bar_.max()));
  SendMessageW(handle(), TBM_SETLINESIZE, 0, bar_.smallChange());
  SendMessageW(handle(), TBM_SETPAGESIZE, 0, bar_.largeChange());
  SendMessageW(handle(), TBM_SETPOS, FALSE, bar_.value());
  repaint();
}

Area PositionSlider::track(int width, int height) const {
  const double side = theme().exact(kThumb + 1);
  const double middle = height / 2.0;
  return {side, middle, width - side, middle + theme().exact(4)};
}

double PositionSlider::thumbCentre(const Area& line) const {
  const int low = std::min(bar_.min(), bar_.max());
  const int span = std::max(bar_.min(), bar_.max()) - low;
  const double share = span > 0 ? double(bar_.value() - low) / span : 0;
  return line.left + share * line.width();
}

int PositionSlider::valueAt(int x) const {
  RECT area;
  GetClientRect(handle(), &area);
  const Area line = track(area.right, area.bottom);
  const double share = std::clamp((x - line.left) / std::max(line.width(), 1.0), 0.0, 1.0);
  const int low = std::min(bar_.min(), bar_.max());
  const int high = std::max(bar_.min(), bar_.max());
  return low + static_cast<int>(std::lround(share * (high - low)));
}

void PositionSlider::pressed(int x) {
  SetFocus(handle());
  RECT area;
  GetClientRect(handle(), &area);
  if (std::abs(x - thumbCentre(track(area.right, area.bottom))) <= theme().exact(kThumb + 2)) {
    dragging_ = true;
    SetCapture(handle());
    return repaint();
  }
  quietly([this, x] { bar_.userMove(valueAt(x)); });
}

void PositionSlider::dragged(int x) {
  if (!dragging_) return;
  const int value = valueAt(x);
  if (value != bar_.value()) quietly([this, value] { bar_.userDrag(value); });
}

void PositionSlider::released() {
  if (!std::exchange(dragging_, false)) return;
  if (GetCapture() == handle()) ReleaseCapture();
  repaint();
  quietly([this] { bar_.userRelease(); });
}

void PositionSlider::keyDown(WPARAM key) {
  quietly([this, key] {
    switch (key) {
      case VK_LEFT:
      case VK_DOWN:
        return bar_.userMove(bar_.value() - bar_.smallChange());
      case VK_RIGHT:
      case VK_UP:
        return bar_.userMove(bar_.value() + bar_.smallChange());
      case VK_PRIOR:
        return bar_.userMove(bar_.value() + bar_.largeChange());
      case VK_NEXT:
        return bar_.userMove(bar_.value() - bar_.largeChange());
      case VK_HOME:
        return bar_.userMove(std::min(bar_.min(), bar_.max()));
      case VK_END:
        return bar_.userMove(std::max(bar_.min(), bar_.max()));
      default:
        return;
    }
  });
}

void PositionSlider::wheel(int turned) {
  const int steps = 3 * turned / WHEEL_DELTA;
  quietly([this, steps] { bar_.userMove(bar_.value() + steps * bar_.smallChange()); });
}

std::optional<LRESULT> PositionSlider::onOwnMessage(UINT message, WPARAM first, LPARAM second) {
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      pressed(GET_X_LPARAM(second));
      return 0;
    case WM_MOUSEMOVE:
      dragged(GET_X_LPARAM(second));
      return 0;
    case WM_LBUTTONUP:
    case WM_CAPTURECHANGED:
      released();
      return 0;
    case WM_KEYDOWN:
      keyDown(first);
      return 0;
    case WM_MOUSEWHEEL:
      wheel(GET_WHEEL_DELTA_WPARAM(first));
      return 0;
    default:
      return std::nullopt;
  }
}

void PositionSlider::paintTrack(Canvas& canvas, const Area& line, double thumb) const {
  const double one = theme().exact(1);
  const double round = theme().exact(2);
  canvas.fill(
      Shape().roundedRect({line.left, line.top + one, line.right, line.bottom + one}, round),
      ink::kWhite.faded(20 / 255.0F));
  canvas.fill(Shape().roundedRect(line, round), Ink{0x0b, 0x0d, 0x0f});
  if (enabled())
    canvas.fill(Shape().roundedRect({line.left, line.top, thumb, line.bottom}, round),
                ink::kAccent);
}

void PositionSlider::paintMark(Canvas& canvas, const Area& line, const Ink& amber) const {
  const double middle = line.centre().y;
  canvas.fillRect({static_cast<LONG>(line.right - theme().exact(1)),
                   static_cast<LONG>(middle - theme().exact(8)),
                   static_cast<LONG>(line.right + theme().exact(1)),
                   static_cast<LONG>(middle + theme().exact(8))},
                  amber);
  const RECT words{0, static_cast<LONG>(line.top - theme().exact(15)),
                   static_cast<LONG>(line.right - theme().exact(6)),
                   static_cast<LONG>(line.top - theme().exact(1))};
  theme().drawText(canvas, wideOf(bar_.endMark()), words, theme().smallFont(), amber, Align::Right);
}

void PositionSlider::paint(Canvas& canvas) {
  const Area line = track(canvas.width(), canvas.height());
  const double thumb = thumbCentre(line);
  paintTrack(canvas, line, thumb);
  if (!bar_.endMark().empty()) paintMark(canvas, line, onPanel(ink::kAmber, panelInk()));
  const Point centre{thumb, line.centre().y};
  const double size = theme().exact(kThumb);
  if (focused())
    canvas.fill(Shape().ellipse(centre, size + theme().exact(2)), onPanel(ink::kFocus, panelInk()));
  canvas.fill(Shape().ellipse(centre, size + (dragging_ ? 0.5 : 0)), ink::kBlack.faded(0.47F));
  canvas.fill(Shape().ellipse(centre, size - (dragging_ ? 0.5 : 1)),
              Fill::downwards(centre.y - size, centre.y + size,
                              {{0, enabled() ? Ink{0xf2, 0xf5, 0xf7} : Ink{0x80, 0x88, 0x90}},
                               {1, enabled() ? Ink{0xb4, 0xbd, 0xc5} : Ink{0x5c, 0x64, 0x6b}}}));
}

}  // namespace nerolith::windows_forms
