#include "platform/windows/forms/lamp_switch.h"

#include <commctrl.h>

#include <algorithm>
#include <string>

#include "controls/lamp_words.h"
#include "platform/windows/forms/quietly.h"
#include "platform/windows/forms/wide_text.h"

namespace nerolith::windows_forms {
namespace {

/// Room around the bulb that its light falls on.
constexpr int kHalo = 4;
constexpr int kBetween = 7;
constexpr Ink kOff{0x80, 0x80, 0x80};
constexpr int kTickSize = 16;
constexpr int kTickRoom = kTickSize + 8;

}  // namespace

LampView::LampView(FormGround& ground, controls::Label& label)
    : ControlView(ground, label), label_(label) {
  create({L"STATIC", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | SS_NOTIFY, 0, ground.window()});
  bind();
}

void LampView::refresh() {
  setSpokenName(wideOf(controls::lampColour(label_.backColour())));
  repaint();
}

Extent LampView::extent() const {
  const int size = theme().px(Theme::kLampSize + 2 * kHalo);
  return {size, size, size, size, false, false};
}

void LampView::paint(Canvas& canvas) {
  theme().paintLamp(canvas, canvas.area().centre(), Theme::kLampSize, inkOf(label_.backColour()));
}

std::optional<LRESULT> LampView::onOwnMessage(UINT message, WPARAM first, LPARAM second) {
  if (message != WM_SETTEXT && message != WM_ENABLE) return std::nullopt;
  repaint();
  return DefWindowProcW(handle(), message, first, second);
}

SwitchView::SwitchView(FormGround& ground, controls::Control& control, DWORD style,
                       MousePress::Keyboard keyboard)
    : ControlView(ground, control), press_(keyboard) {
  create({L"BUTTON", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_TABSTOP | style, 0,
          ground.window()});
}

Extent SwitchView::extent() const {
  const SIZE words = theme().measure(controls::Look::LampText, withoutMark(caption()));
  const int width = theme().px(2 * kHalo + Theme::kLampSize + kBetween) +
                    static_cast<int>(words.cx) + theme().px(2);
  const int height = theme().px(Theme::kLampSize + 2 * kHalo);
  return {width, height, width, height, false, false};
}

wchar_t SwitchView::accessKey() const { return accessKeyOf(caption()); }

void SwitchView::accessKeyPressed() {
  SetFocus(handle());
  quietly([this] { clicked(); });
}

void SwitchView::refresh() {
  setName(caption());
  const WPARAM state = lampLit(lamp()) ? BST_CHECKED : BST_UNCHECKED;
  if (static_cast<WPARAM>(SendMessageW(handle(), BM_GETCHECK, 0, 0)) != state)
    SendMessageW(handle(), BM_SETCHECK, state, 0);
  repaint();
}

void SwitchView::paint(Canvas& canvas) {
  const double radius = theme().exact(Theme::kLampSize) / 2;
  theme().paintLamp(canvas, {theme().px(kHalo) + radius, canvas.height() / 2.0}, Theme::kLampSize,
                    lamp());
  const RECT words{theme().px(kHalo + Theme::kLampSize + kBetween), 0, canvas.width(),
                   canvas.height()};
  theme().drawText(canvas, caption(), words, theme().font(controls::Look::LampText),
                   !enabled()  ? ink::kOnGlassDim
                   : hovered() ? ink::kWhite
                               : wordInk(),
                   Align::Left, Shorten::End, true);
  if (focused()) theme().paintFocus(canvas, canvas.area());
}

std::optional<LRESULT> SwitchView::onParentMessage(UINT message, WPARAM first, LPARAM second) {
  if (message == WM_COMMAND && HIWORD(first) == BN_CLICKED) {
    clicked();
    return 0;
  }
  if (message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(second)->code == NM_CUSTOMDRAW) {
    drawOn(reinterpret_cast<const NMCUSTOMDRAW*>(second)->hdc);
    return CDRF_SKIPDEFAULT;
  }
  return std::nullopt;
}

/// The class draws itself at once when its state changes: it is kept from the screen meanwhile.
LRESULT SwitchView::passUnpainted(UINT message, WPARAM first, LPARAM second) {
  const LONG_PTR style = GetWindowLongPtrW(handle(), GWL_STYLE);
  SetWindowLongPtrW(handle(), GWL_STYLE, style & ~WS_VISIBLE);
  const LRESULT result = passOn(message, first, second);
  if (!handle()) return result;
  const LONG_PTR now = GetWindowLongPtrW(handle(), GWL_STYLE);
  SetWindowLongPtrW(handle(), GWL_STYLE, now | (style & WS_VISIBLE));
  repaint();
  return result;
}

std::optional<LRESULT> SwitchView::onOwnMessage(UINT message, WPARAM first, LPARAM second) {
  const MousePress::Told told = press_.hear(handle(), message, second);
  if (told == MousePress::Told::Clicked) quietly([this] { clicked(); });
  if (told != MousePress::Told::Nothing) return 0;
  switch (message) {
    case BM_SETSTATE:
    case BM_SETCHECK:
    case WM_SETTEXT:
    case WM_ENABLE:
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      return passUnpainted(message, first, second);
    default:
      return std::nullopt;
  }
}

LampSwitchView::LampSwitchView(FormGround& ground, const controls::LampSwitch& parts)
    : SwitchView(ground, *parts.words, BS_CHECKBOX, MousePress::Keyboard::Stays), parts_(parts) {
  follow(*parts_.lamp);
  bind();
}

std::wstring LampSwitchView::caption() const { return wideOf(parts_.words->caption()); }

Ink LampSwitchView::wordInk() const { return ink::kOnGlass; }

OptionButtonView::OptionButtonView(FormGround& ground, controls::OptionButton& button)
    : SwitchView(ground, button, BS_RADIOBUTTON, MousePress::Keyboard::Comes), button_(button) {
  bind();
}

std::wstring OptionButtonView::caption() const { return wideOf(button_.caption()); }
Ink OptionButtonView::lamp() const { return button_.value() ? ink::kAccent : kOff; }

CheckBoxView::CheckBoxView(FormGround& ground, controls::CheckBox& box)
    : SwitchView(ground, box, BS_CHECKBOX, MousePress::Keyboard::Comes), box_(box) {
  bind();
}

std::wstring CheckBoxView::caption() const { return wideOf(box_.caption()); }
Ink CheckBoxView::lamp() const {
  return box_.value() == 1 ? ink::kAccent : box_.value() == 2 ? ink::kAmber : kOff;
}

Extent CheckBoxView::extent() const {
  const SIZE words = theme().measure(controls::Look::LampText, withoutMark(caption()));
  const int width = theme().px(kTickRoom) + static_cast<int>(words.cx) + theme().px(4);
  const int height = std::max(theme().px(kTickSize), static_cast<int>(words.cy)) + theme().px(8);
  return {width, height, width, height, false, false};
}

void CheckBoxView::paint(Canvas& canvas) {
  const double size = theme().exact(kTickSize);
  const double top = (canvas.height() - size) / 2;
  const Area box{0, top, size, top + size};
  theme().paintRecess(canvas, box, ink::kWell, ink::kWell);
  if (box_.value() == 1)
    theme().paintTick(canvas, box, ink::kPlaying);
  else if (box_.value() == 2)
    theme().paintDash(canvas, box, ink::kAmber);
  theme().drawText(canvas, caption(), {theme().px(kTickRoom), 0, canvas.width(), canvas.height()},
                   theme().font(controls::Look::LampText),
                   !enabled()  ? ink::kFaint
                   : hovered() ? ink::kOnSelection
                               : wordInk(),
                   Align::Left, Shorten::End, true);
  if (focused()) theme().paintFocus(canvas, box);
}

}  // namespace nerolith::windows_forms
