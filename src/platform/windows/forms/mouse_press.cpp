#include "platform/windows/forms/mouse_press.h"

#include <windowsx.h>

namespace nerolith::windows_forms {
namespace {

bool over(HWND button, LPARAM where) {
  RECT area;
  GetClientRect(button, &area);
  return PtInRect(&area, {GET_X_LPARAM(where), GET_Y_LPARAM(where)}) != FALSE;
}

}  // namespace

MousePress::Told MousePress::hear(HWND button, UINT message, LPARAM where) {
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:  // the second press of a quick pair is a press as well
      held_ = true;
      if (keyboard_ == Keyboard::Comes) SetFocus(button);
      SetCapture(button);
      SendMessageW(button, BM_SETSTATE, TRUE, 0);
      return Told::Handled;
    case WM_MOUSEMOVE:
      if (held_) SendMessageW(button, BM_SETSTATE, over(button, where), 0);
      return Told::Handled;
    case WM_LBUTTONUP:
      if (!held_) return Told::Handled;
      held_ = false;
      SendMessageW(button, BM_SETSTATE, FALSE, 0);
      if (GetCapture() == button) ReleaseCapture();
      return over(button, where) ? Told::Clicked : Told::Handled;
    case WM_CAPTURECHANGED:
      if (held_) SendMessageW(button, BM_SETSTATE, FALSE, 0);
      held_ = false;
      return Told::Handled;
    default:
      return Told::Nothing;
  }
}

}  // namespace nerolith::windows_forms
