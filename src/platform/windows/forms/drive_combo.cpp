#include "platform/windows/forms/drive_combo.h"

#include <windowsx.h>

#include "platform/windows/forms/quietly.h"
#include "platform/windows/forms/wide_text.h"

namespace nerolith::windows_forms {
namespace {

constexpr int kArrowRoom = 26;
constexpr int kRow = 24;
constexpr Ink kDropGround{0x1c, 0x21, 0x26};
constexpr WPARAM kClosedPart = static_cast<WPARAM>(-1);

}  // namespace

DriveCombo::DriveCombo(FormGround& ground, controls::DriveListBox& drives)
    : ControlView(ground, drives),
      drives_(drives),
      dropGround_(CreateSolidBrush(kDropGround.ref())) {
  create({L"COMBOBOX",
          WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST |
              CBS_OWNERDRAWFIXED | CBS_HASSTRINGS,
          0, ground.window()});
  themeChanged();
  setName(wideOf(drives.accessibleName()));
  setSpokenName({});
  bind();
}

void DriveCombo::themeChanged() {
  SendMessageW(handle(), WM_SETFONT, reinterpret_cast<WPARAM>(theme().font(controls::Look::Plain)),
               FALSE);
  SendMessageW(handle(), CB_SETITEMHEIGHT, 0, theme().px(kRow));
}

Extent DriveCombo::extent() const {
  return {theme().px(170), theme().px(28), theme().px(90), theme().px(28), false, false};
}

void DriveCombo::place(const RECT& area) {
  // The class sets its own height from that of the closed part, plus a frame of unknown width.
  const int wanted = static_cast<int>(area.bottom - area.top);
  SendMessageW(handle(), CB_SETITEMHEIGHT, kClosedPart, wanted - 6);
  ControlView::place({area.left, area.top, area.right, area.bottom + theme().px(12 * kRow)});
  RECT real;
  GetWindowRect(handle(), &real);
  const int off = static_cast<int>(real.bottom - real.top) - wanted;
  if (off != 0) SendMessageW(handle(), CB_SETITEMHEIGHT, kClosedPart, wanted - 6 - off);
}

int DriveCombo::chosen() const {
  for (std::size_t i = 0; i < listed_.size(); ++i)
    if (listed_[i].root == drives_.drive()) return static_cast<int>(i);
  return -1;
}

void DriveCombo::refresh() {
  const controls::EchoGuard::Hold hold(echo_);
  if (listed_ != drives_.drives()) {
    listed_ = drives_.drives();
    SendMessageW(handle(), CB_RESETCONTENT, 0, 0);
    for (const controls::DriveEntry& drive : listed_)
      SendMessageW(handle(), CB_ADDSTRING, 0,
                   reinterpret_cast<LPARAM>(wideOf(drive.label).c_str()));
  }
  SendMessageW(handle(), CB_SETCURSEL, static_cast<WPARAM>(chosen()), 0);
  repaint();
}

void DriveCombo::choose() {
  const LRESULT row = SendMessageW(handle(), CB_GETCURSEL, 0, 0);
  if (row < 0 || row >= static_cast<LRESULT>(listed_.size())) return;
  quietly([&] { drives_.setDrive(std::string(listed_[static_cast<std::size_t>(row)].root)); });
}

void DriveCombo::paint(Canvas& canvas) {
  theme().paintRecess(canvas, canvas.area(), ink::kWell, ink::kWell);
  const int row = chosen();
  const std::wstring label =
      row >= 0 ? wideOf(listed_[static_cast<std::size_t>(row)].label) : std::wstring();
  theme().drawText(canvas, label,
                   {theme().px(10), 0, canvas.width() - theme().px(kArrowRoom), canvas.height()},
                   theme().font(controls::Look::Plain), enabled() ? ink::kPlain : ink::kFaint);
  const Point tip{canvas.width() - theme().exact(kArrowRoom / 2.0),
                  canvas.height() / 2.0 + theme().exact(2)};
  const double wing = theme().exact(4);
  canvas.fill(Shape().stroke({{tip.x - wing, tip.y - wing}, tip, {tip.x + wing, tip.y - wing}},
                             theme().exact(1.6)),
              hovered() ? ink::kPlain : ink::kDim);
  if (focused()) theme().paintFocus(canvas, canvas.area());
}

LRESULT DriveCombo::draw(const DRAWITEMSTRUCT& item) {
  if (item.itemState & ODS_COMBOBOXEDIT) {
    drawOn(item.hDC);
    return TRUE;
  }
  const RECT& area = item.rcItem;
  Canvas canvas(area.right - area.left, area.bottom - area.top);
  const bool marked = item.itemState & ODS_SELECTED;
  const RECT whole{0, 0, canvas.width(), canvas.height()};
  canvas.fillRect(whole, marked ? ink::kSelection : kDropGround);
  if (item.itemID < listed_.size())
    theme().drawText(canvas, wideOf(listed_[item.itemID].label),
                     {theme().px(10), 0, whole.right - theme().px(4), whole.bottom},
                     theme().font(controls::Look::Plain), marked ? ink::kOnSelection : ink::kPlain);
  BitBlt(item.hDC, area.left, area.top, whole.right, whole.bottom, canvas.dc(), 0, 0, SRCCOPY);
  return TRUE;
}

std::optional<LRESULT> DriveCombo::onParentMessage(UINT message, WPARAM first, LPARAM second) {
  switch (message) {
    case WM_COMMAND:
      if (HIWORD(first) == CBN_SELCHANGE && !echo_.held()) choose();
      return 0;
    case WM_DRAWITEM:
      return draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(second));
    default:
      return std::nullopt;
  }
}

std::optional<LRESULT> DriveCombo::pressed(LPARAM where) {
  RECT area;
  GetClientRect(handle(), &area);
  const bool dropped = SendMessageW(handle(), CB_GETDROPPEDSTATE, 0, 0) != 0;
  if (dropped || GET_X_LPARAM(where) >= area.right - theme().px(kArrowRoom)) return std::nullopt;
  if (!focused()) {
    SetFocus(handle());  // which is the control's focus event
    return 0;
  }
  quietly([this] { drives_.gotFocus.raise(); });
  return 0;
}

std::optional<LRESULT> DriveCombo::onOwnMessage(UINT message, WPARAM first, LPARAM second) {
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      return pressed(second);
    case WM_MOUSEWHEEL:  // rolling past must not change the drive, and with it the whole list
      return 0;
    case WM_CTLCOLORLISTBOX:
      SetBkColor(reinterpret_cast<HDC>(first), kDropGround.ref());
      return reinterpret_cast<LRESULT>(dropGround_.get());
    default:
      return std::nullopt;
  }
}

}  // namespace nerolith::windows_forms
