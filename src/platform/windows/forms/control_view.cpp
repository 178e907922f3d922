#include "platform/windows/forms/control_view.h"

#include "platform/windows/forms/quietly.h"
#include "platform/windows/forms/wide_text.h"

namespace nerolith::windows_forms {

void ControlView::bind() {
  follow(control_);
  on(control_.focusRequested, [this] { quietly([this] { SetFocus(handle()); }); });
  bringInLine();
}

void ControlView::follow(controls::Control& other) {
  on(other.changed, [this] { quietly([this] { bringInLine(); }); });
}

std::wstring ControlView::toolTip() const { return wideOf(control_.toolTip()); }

bool ControlView::takesFocus() const {
  constexpr DWORD wanted = WS_TABSTOP | WS_VISIBLE;
  const auto style = static_cast<DWORD>(GetWindowLongPtrW(handle(), GWL_STYLE));
  return (style & wanted) == wanted && (style & WS_DISABLED) == 0;
}

void ControlView::bringInLine() {
  if (enabled() != usable()) EnableWindow(handle(), usable());
  if (const std::wstring tip = toolTip(); tip != toolTip_) {
    toolTip_ = tip;
    ground_.setToolTip(handle(), tip);
  }
  refresh();
  const bool visible = (GetWindowLongPtrW(handle(), GWL_STYLE) & WS_VISIBLE) != 0;
  if (visible != control_.visible()) ShowWindow(handle(), control_.visible() ? SW_SHOWNA : SW_HIDE);
  if (shown_ != control_.visible()) {
    shown_ = control_.visible();
    ground_.layoutChanged();
  }
}

void ControlView::place(const RECT& area) {
  placed_ = area;
  SetWindowPos(handle(), nullptr, area.left, area.top, area.right - area.left,
               area.bottom - area.top, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
}

std::optional<LRESULT> ControlView::onParentMessage(UINT, WPARAM, LPARAM) { return std::nullopt; }

POINT ControlView::menuPlace() const {
  RECT area;
  GetWindowRect(handle(), &area);
  return {area.left, area.bottom};
}

void ControlView::repaint() { InvalidateRect(handle(), nullptr, FALSE); }

void ControlView::setName(const std::wstring& name) {
  std::wstring now(static_cast<std::size_t>(GetWindowTextLengthW(handle())), L'\0');
  GetWindowTextW(handle(), now.data(), static_cast<int>(now.size()) + 1);
  if (now != name) SetWindowTextW(handle(), name.c_str());
}

void ControlView::setSpokenName(const std::wstring& shown) {
  if (!control_.accessibleName().empty())
    spokenName_.tell(handle(), spokenWords(wideOf(control_.accessibleName()), shown));
}

void ControlView::drawOn(HDC target) {
  RECT area;
  GetClientRect(handle(), &area);
  if (area.right <= 0 || area.bottom <= 0) return;
  Canvas canvas(area.right, area.bottom);
  ground_.paintBehind(handle(), canvas);
  paint(canvas);
  canvas.showOn(target, area);
}

void ControlView::paintWindow() {
  const PaintScope scope(handle());
  drawOn(scope.dc());
}

void ControlView::pressed(controls::MouseButton button) {
  held_ |= static_cast<unsigned>(button);
  quietly([this, button] { control_.mouseDown.raise(button); });
}

void ControlView::released(controls::MouseButton button) {
  if (!(held_ & static_cast<unsigned>(button))) return;
  held_ &= ~static_cast<unsigned>(button);
  quietly([this, button] { control_.mouseUp.raise(button); });
}

void ControlView::moved() {
  if (!hovered_) {
    hovered_ = true;
    TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, handle(), 0};
    TrackMouseEvent(&track);
    repaint();
  }
  quietly([this] { control_.mouseMoved.raise(); });
}

void ControlView::left() {
  hovered_ = false;
  repaint();
}

// Focus that comes back with the whole window is no move of the user's.
void ControlView::focusMoved(bool here, HWND other) {
  repaint();
  const bool within = other && GetAncestor(other, GA_ROOT) == GetAncestor(handle(), GA_ROOT);
  if (here && !within) return;
  quietly([&] { (here ? control_.gotFocus : control_.lostFocus).raise(); });
}

void ControlView::passMouse(UINT message) {
  using controls::MouseButton;
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      return pressed(MouseButton::Left);
    case WM_LBUTTONUP:
      return released(MouseButton::Left);
    case WM_RBUTTONDOWN:
    case WM_RBUTTONDBLCLK:
      return pressed(MouseButton::Right);
    case WM_RBUTTONUP:
      return released(MouseButton::Right);
    case WM_MBUTTONDOWN:
    case WM_MBUTTONDBLCLK:
      return pressed(MouseButton::Middle);
    case WM_MBUTTONUP:
      return released(MouseButton::Middle);
    case WM_MOUSEMOVE:
      return moved();
    case WM_MOUSELEAVE:
      return left();
    default:
      break;
  }
}

std::optional<LRESULT> ControlView::onMessage(UINT message, WPARAM first, LPARAM second) {
  const bool button = message >= WM_LBUTTONDOWN && message <= WM_MBUTTONDBLCLK;
  if (button && !enabled()) return 0;  // the system sends none; another program might
  passMouse(message);
  if (!handle()) return 0;
  if (message == WM_SETFOCUS) focusMoved(true, reinterpret_cast<HWND>(first));
  if (message == WM_KILLFOCUS) focusMoved(false, reinterpret_cast<HWND>(first));
  if (auto result = onOwnMessage(message, first, second)) return result;
  switch (message) {
    case WM_PAINT:
      paintWindow();
      return 0;
    case WM_ERASEBKGND:
      return 1;
    default:
      return std::nullopt;
  }
}

}  // namespace nerolith::windows_forms
