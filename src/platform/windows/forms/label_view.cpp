#include "platform/windows/forms/label_view.h"

#include <windowsx.h>

#include "platform/windows/forms/quietly.h"
#include "platform/windows/forms/wide_text.h"

namespace nerolith::windows_forms {

using controls::Look;

LabelView::LabelView(FormGround& ground, controls::Label& label, Look look, bool onGlass)
    : ControlView(ground, label), label_(label), look_(look), onGlass_(onGlass) {
  create({L"STATIC", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | SS_NOTIFY | SS_NOPREFIX, 0,
          ground.window()});
  bind();
}

std::wstring LabelView::words() const {
  std::wstring text = wideOf(label_.caption());
  if (look_ == Look::Tag) CharUpperBuffW(text.data(), static_cast<DWORD>(text.size()));
  return text;
}

std::wstring LabelView::toolTip() const {
  std::wstring tip = ControlView::toolTip();
  const bool cut = measured_.cx > placed().right - placed().left && placed().right > 0;
  return tip.empty() && cut ? wideOf(label_.caption()) : tip;
}

void LabelView::refresh() {
  setName(wideOf(label_.caption()));
  setSpokenName(wideOf(label_.caption()));
  const SIZE before = measured_;
  measured_ = theme().measure(look_, words());
  if (before.cx != measured_.cx || before.cy != measured_.cy) ground_.layoutChanged();
  repaint();
}

void LabelView::place(const RECT& area) {
  ControlView::place(area);
  bringInLine();
}

Extent LabelView::extent() const {
  const SIZE size = theme().measure(look_, words());
  const int width = static_cast<int>(size.cx) + 2;
  const int height = static_cast<int>(size.cy) + 2;
  const bool wide = look_ == Look::Song || look_ == Look::Notice;
  const bool elastic = wide || look_ == Look::Title;
  return {wide ? 0 : width, height, elastic ? 0 : width, height, wide, false, true};
}

Ink LabelView::inkNow() const {
  const Ink dim = onGlass_ ? ink::kOnGlassDim : mixed(ink::kPanelMiddle, panelInk(), 0.68);
  if (!enabled()) return dim;
  if (look_ == Look::Notice) return ink::kAmber;
  if (look_ == Look::Dim || look_ == Look::Tag) return dim;
  if (label_.foreColour() != 0xFFFFFF) return inkOf(label_.foreColour());
  return onGlass_ ? ink::kOnGlass : panelInk();
}

void LabelView::paint(Canvas& canvas) {
  const int spread = look_ == Look::Tag     ? std::max(1, theme().px(1))
                     : look_ == Look::Title ? std::max(1, theme().px(1)) - 1
                                            : 0;
  SetTextCharacterExtra(canvas.dc(), spread);
  theme().drawText(canvas, words(), {0, 0, canvas.width(), canvas.height()}, theme().font(look_),
                   inkNow());
}

void LabelView::clicked(LPARAM where) {
  if (!std::exchange(pressed_, false)) return;
  RECT area;
  GetClientRect(handle(), &area);
  if (PtInRect(&area, {GET_X_LPARAM(where), GET_Y_LPARAM(where)}))
    quietly([this] { label_.userClick(); });
}

std::optional<LRESULT> LabelView::onOwnMessage(UINT message, WPARAM first, LPARAM second) {
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      pressed_ = true;
      return 0;
    case WM_LBUTTONUP:
      clicked(second);
      return 0;
    case WM_SETTEXT:  // the class would paint the text itself
    case WM_ENABLE:
      repaint();
      return DefWindowProcW(handle(), message, first, second);
    default:
      return std::nullopt;
  }
}

}  // namespace nerolith::windows_forms
