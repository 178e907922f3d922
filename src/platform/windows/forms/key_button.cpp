#include "platform/windows/forms/key_button.h"

#include <algorithm>

#include "controls/lamp_words.h"
#include "platform/windows/forms/quietly.h"
#include "platform/windows/forms/wide_text.h"

namespace nerolith::windows_forms {
namespace {

constexpr double kFaceLamp = 8;
constexpr Ink kDisabledInk{0x74, 0x7d, 0x85};

}  // namespace

KeyButton::KeyButton(FormGround& ground, controls::Control& control, MousePress::Keyboard keyboard)
    : ControlView(ground, control), press_(keyboard) {
  create({L"BUTTON", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_TABSTOP | BS_OWNERDRAW, 0,
          ground.window()});
}

void KeyButton::refresh() {
  setName(spokenName());
  repaint();
}

wchar_t KeyButton::accessKey() const { return accessKeyOf(caption()); }

void KeyButton::accessKeyPressed() {
  SetFocus(handle());
  quietly([this] { clicked(); });
}

Theme::KeyState KeyButton::state() const {
  if (!enabled()) return Theme::KeyState::Disabled;
  if (down()) return Theme::KeyState::Pressed;
  return hovered() ? Theme::KeyState::Hovered : Theme::KeyState::Idle;
}

std::optional<LRESULT> KeyButton::onParentMessage(UINT message, WPARAM first, LPARAM second) {
  if (message == WM_COMMAND && HIWORD(first) == BN_CLICKED) {
    clicked();
    return 0;
  }
  if (message != WM_DRAWITEM) return std::nullopt;
  drawOn(reinterpret_cast<const DRAWITEMSTRUCT*>(second)->hDC);
  return TRUE;
}

std::optional<LRESULT> KeyButton::onOwnMessage(UINT message, WPARAM, LPARAM second) {
  const MousePress::Told told = press_.hear(handle(), message, second);
  if (told == MousePress::Told::Nothing) return std::nullopt;
  if (told == MousePress::Told::Clicked) quietly([this] { clicked(); });
  return 0;
}

FaceButtonView::FaceButtonView(FormGround& ground, const controls::FaceButton& parts)
    : KeyButton(ground, *parts.face), parts_(parts) {
  follow(*parts_.button);
  if (parts_.lamp) follow(*parts_.lamp);
  bind();
}

void FaceButtonView::refresh() {
  KeyButton::refresh();
  if (parts_.lamp) setSpokenState(wideOf(controls::lampState(parts_.lamp->backColour())));
}

std::wstring FaceButtonView::caption() const { return wideOf(parts_.button->caption()); }

bool FaceButtonView::usable() const { return parts_.face->enabled() && parts_.button->enabled(); }

std::wstring FaceButtonView::toolTip() const {
  return parts_.face->toolTip().empty() ? wideOf(parts_.button->toolTip()) : ControlView::toolTip();
}

Extent FaceButtonView::extent() const {
  const SIZE words = theme().measure(controls::Look::Transport, withoutMark(caption()));
  const int width = static_cast<int>(words.cx) + theme().px(28);
  return {width, theme().px(46), width - theme().px(12), theme().px(46), true, false};
}

void FaceButtonView::paint(Canvas& canvas) {
  const Ink colour = parts_.lamp ? inkOf(parts_.lamp->backColour()) : ink::kBlack;
  const bool lit = parts_.lamp && lampLit(colour);
  theme().paintKey(canvas, canvas.area(), state(), lit ? &colour : nullptr);
  RECT words{0, 0, canvas.width(), canvas.height()};
  if (parts_.lamp) {
    const double lamp = canvas.height() * 0.30;
    theme().paintLamp(canvas, {canvas.width() / 2.0, lamp}, kFaceLamp,
                      enabled() || lit ? colour : scaled(colour, 1 / 1.4));
    words.top = static_cast<LONG>(lamp + theme().exact(kFaceLamp) / 2);
    words.bottom -= theme().px(3);
  }
  if (down()) OffsetRect(&words, 0, 1);
  theme().drawText(canvas, caption(), words, theme().font(controls::Look::Transport),
                   enabled() ? ink::kPlain : kDisabledInk, Align::Centre, Shorten::End, true);
  if (focused()) theme().paintFocus(canvas, canvas.area());
}

CaptionKey::CaptionKey(FormGround& ground, controls::Label& label)
    : KeyButton(ground, label), label_(label) {
  bind();
}

std::wstring CaptionKey::caption() const { return wideOf(label_.caption()); }

std::wstring CaptionKey::spokenName() const {
  return label_.accessibleName().empty() ? caption() : wideOf(label_.accessibleName());
}

Extent CaptionKey::extent() const {
  return {theme().px(30), theme().px(24), theme().px(30), theme().px(24), false, false};
}

void CaptionKey::paint(Canvas& canvas) {
  const bool lively = hovered() || down();
  Ink sign = panelInk();
  if (lively)
    canvas.fill(Shape().roundedRect(canvas.area(), theme().exact(Theme::kRound)),
                sign.faded(static_cast<float>(down() ? 18 : 32) / 255));
  const Ink ring = onPanel(ink::kFocus, sign);
  if (!lively && !focused()) sign = mixed(ink::kPanelTop, sign, 0.7);
  theme().drawText(canvas, caption(), {0, 0, canvas.width(), canvas.height()},
                   theme().font(controls::Look::CaptionKey), sign, Align::Centre);
  if (focused()) theme().paintFocus(canvas, canvas.area(), ring);
}

Extent PlainKey::extent() const {
  const SIZE words = theme().measure(controls::Look::Plain, withoutMark(caption()));
  const int width = std::max(theme().px(92), static_cast<int>(words.cx) + theme().px(36));
  return {width, theme().px(32), width, theme().px(32), false, false, fillsWide_};
}

std::optional<LRESULT> PlainKey::onOwnMessage(UINT message, WPARAM first, LPARAM second) {
  if (message == WM_KEYDOWN && first == VK_RETURN) {
    quietly([this] { clicked(); });
    return 0;
  }
  return KeyButton::onOwnMessage(message, first, second);
}

void PlainKey::paint(Canvas& canvas) {
  theme().paintKey(canvas, canvas.area(), state(), nullptr);
  theme().drawText(canvas, caption(), {0, down() ? 1 : 0, canvas.width(), canvas.height()},
                   theme().font(controls::Look::Plain), enabled() ? ink::kPlain : kDisabledInk,
                   Align::Centre, Shorten::End, true);
  if (focused()) theme().paintFocus(canvas, canvas.area());
}

PushButton::PushButton(FormGround& ground, controls::CommandButton& button)
    : PlainKey(ground, button, false), button_(button) {
  bind();
}

std::wstring PushButton::caption() const { return wideOf(button_.caption()); }

LabelKey::LabelKey(FormGround& ground, controls::Label& label)
    : PlainKey(ground, label, true), label_(label) {
  bind();
}

std::wstring LabelKey::caption() const {
  std::wstring text;
  for (const wchar_t sign : wideOf(label_.caption())) text.append(sign == L'&' ? 2 : 1, sign);
  return text;
}

std::wstring LabelKey::spokenName() const { return wideOf(label_.caption()); }

void LabelKey::refresh() {
  KeyButton::refresh();
  if (std::exchange(shown_, label_.caption()) != label_.caption()) ground_.layoutChanged();
}

}  // namespace nerolith::windows_forms
