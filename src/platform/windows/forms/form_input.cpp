// What a form's window makes of keys and of the mouse before its controls see them.
#include <windowsx.h>

#include <algorithm>

#include "platform/windows/forms/form_window.h"
#include "platform/windows/forms/key_names.h"
#include "platform/windows/forms/quietly.h"

namespace nerolith::windows_forms {

bool FormWindow::takesMessage(const MSG& message) {
  if (message.hwnd != handle() && !IsChild(handle(), message.hwnd)) return false;
  switch (message.message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
      keyPressed(message);
      return navigated(message);
    case WM_SYSKEYUP:
      return message.wParam == VK_F10;  // would open the window's own menu
    case WM_SYSCHAR:
      return accessKeyTyped(static_cast<wchar_t>(message.wParam));
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
      lastInputWasKey_ = false;
      return false;
    case WM_MOUSEMOVE:
      mouseMoved(message);
      return false;
    case WM_MOUSEWHEEL:
      return wheelTurned(message);
    default:
      return false;
  }
}

void FormWindow::keyPressed(const MSG& message) {
  lastInputWasKey_ = true;
  controls::KeyPress press = keyPressOf(message.wParam, message.lParam);
  // The other way to the menu, on keyboards that have no key for it.
  if (press.key == controls::Key::F10 && press.shift) press = {controls::Key::Menu};
  quietly([&] { form_.keyDown.raise(press); });
}

bool FormWindow::navigated(const MSG& message) {
  const bool control = GetKeyState(VK_CONTROL) < 0;
  if (message.message == WM_KEYDOWN && message.wParam == VK_TAB && !control) {
    moveFocus(GetKeyState(VK_SHIFT) < 0);
    return true;
  }
  return message.wParam == VK_F10;
}

void FormWindow::moveFocus(bool backwards) {
  std::vector<ControlView*> stops;
  for (const auto& view : layout_->views())
    if (view->takesFocus()) stops.push_back(view.get());
  if (stops.empty()) return;
  const auto count = static_cast<int>(stops.size());
  const auto found = std::find_if(stops.begin(), stops.end(), [](const ControlView* view) {
    return view->handle() == GetFocus();
  });
  int next = backwards ? count - 1 : 0;
  if (found != stops.end())
    next = (static_cast<int>(found - stops.begin()) + (backwards ? count - 1 : 1)) % count;
  ControlView& view = *stops[static_cast<std::size_t>(next)];
  SetFocus(view.handle());
  view.tabbedTo();
}

bool FormWindow::accessKeyTyped(wchar_t sign) {
  if (sign <= L' ') return false;  // Alt+Space is the system's
  const auto key = static_cast<wchar_t>(reinterpret_cast<ULONG_PTR>(
      CharUpperW(reinterpret_cast<LPWSTR>(static_cast<ULONG_PTR>(sign)))));
  for (const auto& view : layout_->views()) {
    if (view->accessKey() != key || !view->takesFocus()) continue;
    view->accessKeyPressed();
    break;
  }
  return true;  // a key that only the form knows shall not sound an alarm
}

// The system reports the mouse also when a window comes or goes beneath it.
void FormWindow::mouseMoved(const MSG& message) {
  POINT where{GET_X_LPARAM(message.lParam), GET_Y_LPARAM(message.lParam)};
  ClientToScreen(message.hwnd, &where);
  if (where.x == mouse_.x && where.y == mouse_.y) return;
  mouse_ = where;
  if (!ownsOverlay(message.hwnd)) quietly([this] { form_.mouseMoved.raise(); });
}

/// The wheel turns what lies under the mouse, as newer systems do by themselves.
bool FormWindow::wheelTurned(const MSG& message) {
  const HWND under = WindowFromPoint({GET_X_LPARAM(message.lParam), GET_Y_LPARAM(message.lParam)});
  if (!under || under == message.hwnd || !IsChild(handle(), under)) return false;
  SendMessageW(under, message.message, message.wParam, message.lParam);
  return true;
}

}  // namespace nerolith::windows_forms
