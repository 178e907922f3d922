#include "platform/windows/forms/text_line.h"

#include "platform/windows/forms/quietly.h"
#include "platform/windows/forms/wide_text.h"

namespace nerolith::windows_forms {

TextLine::TextLine(FormGround& ground, controls::TextBox& box, controls::Look look)
    : ControlView(ground, box),
      box_(box),
      well_(CreateSolidBrush(ink::kWell.ref())),
      readOnly_(look == controls::Look::Well) {
  const DWORD style = readOnly_ ? ES_READONLY : 0;
  create({L"EDIT", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_TABSTOP | ES_AUTOHSCROLL | style, 0,
          ground.window()});
  themeChanged();
  bind();
}

void TextLine::themeChanged() {
  SendMessageW(handle(), WM_SETFONT, reinterpret_cast<WPARAM>(theme().font(controls::Look::Plain)),
               TRUE);
}

Extent TextLine::extent() const {
  return {theme().px(160), theme().px(28), theme().px(80), theme().px(28), true, false};
}

void TextLine::place(const RECT& area) {
  // The text stands in the middle of the recess.
  const int high = static_cast<int>(theme().measure(controls::Look::Plain, L"X").cy);
  const int top = static_cast<int>(area.top + area.bottom - high) / 2;
  const int side = theme().px(10);
  ControlView::place(
      {area.left + side, top, std::max(area.right - side, area.left + side + 1), top + high});
}

void TextLine::paintOnPanel(Canvas& canvas, const Area& area) const {
  theme().paintRecess(canvas, area, ground(), ground());
  if (focused()) theme().paintFocus(canvas, area);
}

void TextLine::refresh() {
  const std::wstring text = wideOf(box_.text());
  const controls::EchoGuard::Hold hold(echo_);
  // Setting it anew would move the cursor of the user who is typing.
  setName(text);
  setSpokenName({});
  if (readOnly_) repaint();
  if (painted_ == ground()) return;
  painted_ = ground();
  well_ = Brush(CreateSolidBrush(painted_.ref()));
  repaint();
  ground_.panelChanged();
}

Ink TextLine::ground() const { return box_.backColour() ? inkOf(*box_.backColour()) : ink::kWell; }

/// What is typed next takes the place of what stands there.
void TextLine::tabbedTo() { SendMessageW(handle(), EM_SETSEL, 0, -1); }

std::wstring TextLine::shownText() const { return wideOf(box_.text()); }

void TextLine::paint(Canvas& canvas) {
  canvas.fillRect({0, 0, canvas.width(), canvas.height()}, ground());
  theme().drawText(canvas, shownText(), {0, 0, canvas.width(), canvas.height()},
                   theme().font(controls::Look::Plain), enabled() ? ink::kPlain : ink::kFaint,
                   Align::Left, Shorten::Middle);
}

void TextLine::edited() {
  if (echo_.held()) return;
  std::wstring now(static_cast<std::size_t>(GetWindowTextLengthW(handle())), L'\0');
  GetWindowTextW(handle(), now.data(), static_cast<int>(now.size()) + 1);
  quietly([&] { box_.setText(utf8Of(now)); });
}

std::optional<LRESULT> TextLine::onParentMessage(UINT message, WPARAM first, LPARAM) {
  if (message == WM_COMMAND && HIWORD(first) == EN_CHANGE) {
    edited();
    return 0;
  }
  if (message != WM_CTLCOLOREDIT && message != WM_CTLCOLORSTATIC) return std::nullopt;
  const auto dc = reinterpret_cast<HDC>(first);
  SetTextColor(dc, (enabled() ? ink::kPlain : ink::kFaint).ref());
  SetBkColor(dc, painted_.ref());
  return reinterpret_cast<LRESULT>(well_.get());
}

std::optional<LRESULT> TextLine::onOwnMessage(UINT message, WPARAM first, LPARAM second) {
  switch (message) {
    case WM_CHAR:
      quietly([&] { box_.keyPress.raise(static_cast<int>(first)); });
      // The class has no use for these in one line, and sounds an alarm.
      if (first == VK_RETURN || first == VK_ESCAPE || first == VK_TAB) return 0;
      return handle() ? passOn(message, first, second) : 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      ground_.panelChanged();
      return std::nullopt;
    case WM_PAINT:
      // The class paints what is being edited or marked; it knows no ellipsis.
      return readOnly_ && !focused() ? std::nullopt : std::optional(passOn(message, first, second));
    default:
      return std::nullopt;
  }
}

}  // namespace nerolith::windows_forms
