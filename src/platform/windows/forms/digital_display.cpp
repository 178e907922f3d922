#include "platform/windows/forms/digital_display.h"

#include <windowsx.h>

#include "platform/windows/forms/quietly.h"
#include "platform/windows/forms/seven_segments.h"
#include "platform/windows/forms/wide_text.h"

namespace nerolith::windows_forms {

DigitalDisplay::DigitalDisplay(FormGround& ground, controls::Label& label)
    : ControlView(ground, label), label_(label) {
  create({L"STATIC", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_TABSTOP | SS_NOTIFY, 0,
          ground.window()});
  bind();
}

Extent DigitalDisplay::extent() const {
  return {theme().px(200), theme().px(76), theme().px(120), theme().px(76), true, false};
}

void DigitalDisplay::refresh() {
  setName(wideOf(label_.caption()));
  setSpokenName(wideOf(label_.caption()));
  repaint();
}

void DigitalDisplay::paint(Canvas& canvas) {
  const Ink colour = inkOf(label_.foreColour());
  const Ink glass = glassFor(colour);
  const bool light = glass == ink::kLightGlass;
  if (light) canvas.fill(Shape().roundedRect(canvas.area(), theme().exact(Theme::kRound)), glass);
  // On dark glass the digits stand flush with the word below them.
  const Area room{theme().exact(light ? 12 : 2), theme().exact(7),
                  canvas.width() - theme().exact(10), canvas.height() - theme().exact(9)};
  paintSevenSegments(canvas, room, wideOf(label_.caption()), colour,
                     light ? SegmentGlow::None : SegmentGlow::Soft, theme().exact(1));
  if (focused()) theme().paintFocus(canvas, canvas.area());
}

void DigitalDisplay::press(controls::MouseButton button) {
  quietly([this, button] {
    label_.mouseDown.raise(button);
    label_.mouseUp.raise(button);
    if (button == controls::MouseButton::Left) label_.userClick();
  });
}

void DigitalDisplay::clicked(LPARAM where) {
  RECT area;
  GetClientRect(handle(), &area);
  if (PtInRect(&area, {GET_X_LPARAM(where), GET_Y_LPARAM(where)}))
    quietly([this] { label_.userClick(); });
}

LRESULT DigitalDisplay::keyDown(WPARAM key) {
  if (key == VK_SPACE) press(controls::MouseButton::Left);
  if (key == VK_APPS) press(controls::MouseButton::Right);
  return 0;
}

std::optional<LRESULT> DigitalDisplay::onOwnMessage(UINT message, WPARAM first, LPARAM second) {
  switch (message) {
    case WM_LBUTTONUP:
      clicked(second);
      return 0;
    case WM_KEYDOWN:
      return keyDown(first);
    case WM_SETCURSOR:
      SetCursor(LoadCursorW(nullptr, IDC_HAND));
      return TRUE;
    case WM_SETTEXT:  // the class would paint the text itself
    case WM_ENABLE:
      repaint();
      return DefWindowProcW(handle(), message, first, second);
    default:
      return std::nullopt;
  }
}

}  // namespace nerolith::windows_forms
