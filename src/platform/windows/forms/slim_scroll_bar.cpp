#include "platform/windows/forms/slim_scroll_bar.h"

#include <commctrl.h>
#include <windowsx.h>

#include <algorithm>
#include <cmath>

namespace nerolith::windows_forms {
namespace {

constexpr double kShortest = 28;

}  // namespace

SlimScrollBar::SlimScrollBar(FormGround& ground, HWND list) : ground_(ground), list_(list) {
  create(
      {plainClass(), WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, 0, ground.window(), L"Scroll bar"});
}

void SlimScrollBar::place(const RECT& area) {
  SetWindowPos(handle(), nullptr, area.left, area.top, area.right - area.left,
               area.bottom - area.top, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
}

SCROLLINFO SlimScrollBar::position() const {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.nMin = 0;
  info.nPos = ListView_GetTopIndex(list_);
  info.nPage = static_cast<UINT>(std::max(ListView_GetCountPerPage(list_), 1));
  info.nMax = ListView_GetItemCount(list_);
  return info;
}

bool SlimScrollBar::needed() const { return shown_.nMax > static_cast<int>(shown_.nPage); }

void SlimScrollBar::follow() {
  const SCROLLINFO now = position();
  if (now.nPos == shown_.nPos && now.nPage == shown_.nPage && now.nMax == shown_.nMax) return;
  shown_ = now;
  InvalidateRect(handle(), nullptr, FALSE);
}

Area SlimScrollBar::thumb() const {
  RECT area;
  GetClientRect(handle(), &area);
  const double one = ground_.theme().exact(1);
  const double room = area.bottom - 2 * one;
  const double whole = std::max(shown_.nMax, 1);
  const double length =
      std::clamp(room * shown_.nPage / whole, kShortest * one, std::max(room, kShortest * one));
  const double span = std::max(shown_.nMax - static_cast<int>(shown_.nPage), 1);
  const double top = one + (room - length) * std::min(shown_.nPos / span, 1.0);
  return {3 * one, top, area.right - 3 * one, top + length};
}

void SlimScrollBar::scrollTo(int row) {
  RECT line{};
  ListView_GetItemRect(list_, 0, &line, LVIR_BOUNDS);
  const int last = std::max(shown_.nMax - static_cast<int>(shown_.nPage), 0);
  const int rows = std::clamp(row, 0, last) - ListView_GetTopIndex(list_);
  ListView_Scroll(list_, 0, rows * (line.bottom - line.top));
  follow();
}

void SlimScrollBar::pressed(int y) {
  const Area bar = thumb();
  const int page = static_cast<int>(shown_.nPage);
  if (y < bar.top) return scrollTo(shown_.nPos - page);
  if (y > bar.bottom) return scrollTo(shown_.nPos + page);
  grip_ = y - bar.top;
  SetCapture(handle());
  InvalidateRect(handle(), nullptr, FALSE);
}

void SlimScrollBar::dragged(int y) {
  if (grip_ < 0) return;
  RECT area;
  GetClientRect(handle(), &area);
  const double room = area.bottom - thumb().height();
  if (room <= 0) return;
  const double span = std::max(shown_.nMax - static_cast<int>(shown_.nPage), 0);
  scrollTo(static_cast<int>(std::lround((y - grip_) / room * span)));
}

void SlimScrollBar::released() {
  grip_ = -1;
  if (GetCapture() == handle()) ReleaseCapture();
  InvalidateRect(handle(), nullptr, FALSE);
}

void SlimScrollBar::paint() {
  const PaintScope scope(handle());
  RECT area;
  GetClientRect(handle(), &area);
  Canvas canvas(area.right, area.bottom);
  ground_.paintBehind(handle(), canvas);
  const Area bar = thumb();
  if (needed())
    canvas.fill(Shape().roundedRect(bar, bar.width() / 2),
                grip_ >= 0 ? Ink{0x6a, 0x75, 0x80} : Ink{0x45, 0x4e, 0x57});
  canvas.showOn(scope.dc(), area);
}

std::optional<LRESULT> SlimScrollBar::onMessage(UINT message, WPARAM, LPARAM second) {
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      pressed(GET_Y_LPARAM(second));
      return 0;
    case WM_MOUSEMOVE:
      dragged(GET_Y_LPARAM(second));
      return 0;
    case WM_LBUTTONUP:
      released();
      return 0;
    case WM_PAINT:
      paint();
      return 0;
    case WM_ERASEBKGND:
      return 1;
    default:
      return std::nullopt;
  }
}

}  // namespace nerolith::windows_forms
