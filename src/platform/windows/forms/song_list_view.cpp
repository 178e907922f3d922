#include "platform/windows/forms/song_list_view.h"

#include <windowsx.h>

#include <algorithm>
#include <optional>
#include <utility>

#include "platform/windows/forms/quietly.h"
#include "platform/windows/forms/song_row.h"
#include "platform/windows/forms/wide_text.h"

namespace nerolith::windows_forms {
namespace {

constexpr int kBarWidth = 12;
constexpr int kRim = 4;
constexpr DWORD kSearchPause = 1000;  // milliseconds after which a search begins anew

bool keyHeld(int key) { return GetKeyState(key) < 0; }

/// Where a key leads from row `now`; it may lie beyond the list. Nothing for other keys.
std::optional<int> rowFor(WPARAM key, int now, int page, int last) {
  switch (key) {
    case VK_UP:
      return now - 1;
    case VK_DOWN:
      return now + 1;
    case VK_PRIOR:
      return now - page;
    case VK_NEXT:
      return now + page;
    case VK_HOME:
      return 0;
    case VK_END:
      return last;
    default:
      return std::nullopt;
  }
}

}  // namespace

SongListView::SongListView(FormGround& ground, controls::ListBox& list)
    : ControlView(ground, list), list_(list) {
  create({WC_LISTVIEWW,
          WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_TABSTOP | LVS_REPORT | LVS_NOCOLUMNHEADER |
              LVS_OWNERDATA | LVS_SHOWSELALWAYS,
          0, ground.window()});
  ListView_SetExtendedListViewStyle(handle(), LVS_EX_DOUBLEBUFFER | LVS_EX_FULLROWSELECT);
  ListView_SetBkColor(handle(), ink::kWell.ref());
  ListView_SetCallbackMask(handle(), LVIS_SELECTED);
  LVCOLUMNW column{};
  column.mask = LVCF_WIDTH;
  column.cx = 100;
  ListView_InsertColumn(handle(), 0, &column);
  bar_ = std::make_unique<SlimScrollBar>(ground, handle());
  themeChanged();
  setName(wideOf(list.accessibleName()));
  setSpokenName({});
  on(list_.itemsChanged, [this] { quietly([this] { followItems(); }); });
  on(list_.selectionChanged, [this] { quietly([this] { followSelection(); }); });
  on(list_.marksChanged, [this] { repaint(); });
  bind();
  followItems();
}

SongListView::~SongListView() {
  bar_.reset();
  if (rowHeight_) ImageList_Destroy(rowHeight_);
}

// A list of pictures nearly as high as a row is how this class is told the height of its rows.
void SongListView::themeChanged() {
  HIMAGELIST fresh = ImageList_Create(1, theme().px(Theme::kRowHeight) - 1, ILC_COLOR, 0, 1);
  ListView_SetImageList(handle(), fresh, LVSIL_SMALL);
  if (rowHeight_) ImageList_Destroy(rowHeight_);
  rowHeight_ = fresh;
  SendMessageW(handle(), WM_SETFONT,
               reinterpret_cast<WPARAM>(theme().font(controls::Look::SongList)), FALSE);
}

Extent SongListView::extent() const {
  return {theme().px(790),
          theme().px(286),
          theme().px(200),
          theme().px(4 * Theme::kRowHeight),
          true,
          true};
}

void SongListView::place(const RECT& area) {
  const int rim = theme().px(kRim);
  const int bar = theme().px(kBarWidth);
  const RECT inside{area.left + 1, area.top + rim, area.right - bar, area.bottom - rim};
  const int width = static_cast<int>(inside.right - inside.left);
  const int height = static_cast<int>(inside.bottom - inside.top);
  RECT window = inside;
  window.right += GetSystemMetrics(SM_CXVSCROLL);  // the class's own bar lies beyond the cut
  ControlView::place(window);
  SetWindowRgn(handle(), CreateRectRgn(0, 0, width, height), TRUE);
  ListView_SetColumnWidth(handle(), 0, width);
  bar_->place({inside.right, inside.top, area.right, inside.bottom});
  bar_->follow();
}

void SongListView::paintOnPanel(Canvas& canvas, const Area& area) const {
  theme().paintRecess(canvas, area, ink::kWell, ink::kWell);
}

void SongListView::followItems() {
  const controls::EchoGuard::Hold hold(echo_);
  if (current_ >= 0) ListView_SetItemState(handle(), current_, 0, LVIS_FOCUSED);
  current_ = -1;
  ListView_SetItemCountEx(handle(), list_.count(), LVSICF_NOSCROLL);
  followSelection();
  bar_->follow();
}

void SongListView::followSelection() {
  const controls::EchoGuard::Hold hold(echo_);
  const int row = list_.listIndex();
  if (row != current_) {
    const int before = std::exchange(current_, row);
    if (before >= 0) ListView_SetItemState(handle(), before, 0, LVIS_FOCUSED);
    if (row >= 0) {
      ListView_SetItemState(handle(), row, LVIS_FOCUSED, LVIS_FOCUSED);
      ListView_EnsureVisible(handle(), row, FALSE);
    }
  }
  repaint();
}

int SongListView::rowAt(LPARAM where, bool nearest) const {
  const int rows = list_.count();
  if (rows == 0) return -1;
  RECT first{};
  ListView_GetItemRect(handle(), 0, &first, LVIR_BOUNDS);
  const int height = std::max<int>(first.bottom - first.top, 1);
  const int y = GET_Y_LPARAM(where) - static_cast<int>(first.top);
  const int row = y < 0 ? -1 : y / height;
  if (nearest) return std::clamp(row, 0, rows - 1);
  return row < rows ? row : -1;
}

void SongListView::selectRange(int from, int to) {
  const controls::ListBox::Walk walk(list_);
  list_.deselectAll();
  const auto [first, last] = std::minmax(from, to);
  for (int row = std::max(first, 0); row <= last && row < list_.count(); ++row)
    list_.setSelected(row, true);
}

void SongListView::toggle(int row) { list_.setSelected(row, !list_.selected(row)); }

void SongListView::reach(int row, bool shift, bool control) {
  if (row < 0 || row >= list_.count()) return;
  if (shift) {
    selectRange(std::clamp(anchor_, 0, list_.count() - 1), row);
  } else if (!control) {
    anchor_ = row;
    selectRange(row, row);
  }
  list_.userMoveTo(row);
}

bool SongListView::moveByKey(WPARAM key) {
  const int last = list_.count() - 1;
  const int page = std::max(1, ListView_GetCountPerPage(handle()) - 1);
  const auto row = rowFor(key, list_.listIndex(), page, last);
  if (!row) return false;
  if (last >= 0) reach(std::clamp(*row, 0, last), keyHeld(VK_SHIFT), keyHeld(VK_CONTROL));
  return true;
}

bool SongListView::keyDown(WPARAM key) {
  if (moveByKey(key)) return true;
  const int now = list_.listIndex();
  if (keyHeld(VK_CONTROL)) {
    if (key == 'A') list_.selectAll();
    if (key == VK_SPACE && now >= 0) toggle(anchor_ = now);
    return true;
  }
  // Enter is the window's, and Space is heard as a sign.
  return key == VK_RETURN || key == VK_SPACE;
}

void SongListView::typed(wchar_t sign) {
  if (sign < L' ' || keyHeld(VK_CONTROL)) return;
  list_.keyPress.raise(sign);
  if (sign != L' ') search(sign);
}

void SongListView::search(wchar_t sign) {
  const DWORD now = GetTickCount();
  if (now - soughtAt_ > kSearchPause) sought_.clear();
  soughtAt_ = now;
  sought_ += sign;
  const int rows = list_.count();
  // The first letter looks behind the current entry, further ones narrow it down.
  const int start = std::max(list_.listIndex(), 0) + (sought_.size() == 1 ? 1 : 0);
  const auto length = static_cast<int>(sought_.size());
  for (int i = 0; i < rows; ++i) {
    const int row = (start + i) % rows;
    const std::wstring name = wideOf(list_.item(row)).substr(0, sought_.size());
    if (CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, name.c_str(),
                       static_cast<int>(name.size()), sought_.c_str(), length) == CSTR_EQUAL)
      return reach(row, false, false);
  }
}

void SongListView::pressed(LPARAM where, WPARAM held) {
  SetFocus(handle());
  const int row = pressedRow_ = rowAt(where, false);
  const bool shift = held & MK_SHIFT;
  const bool control = held & MK_CONTROL;
  if (row < 0) {
    if (!shift && !control) list_.deselectAll();
    return;
  }
  if (control && !shift) toggle(anchor_ = row);
  sweeping_ = !control;
  if (sweeping_) SetCapture(handle());
  reach(row, shift, control);
}

void SongListView::swept(LPARAM where) {
  if (!sweeping_) return;
  const int row = rowAt(where, true);
  if (row >= 0 && row != list_.listIndex()) reach(row, true, false);
}

void SongListView::letGo(LPARAM where, controls::MouseButton button) {
  RECT room;
  GetClientRect(handle(), &room);
  const bool inside = PtInRect(&room, {GET_X_LPARAM(where), GET_Y_LPARAM(where)}) != FALSE;
  const int row = rowAt(where, false);
  if (std::exchange(pressedRow_, kNowhere) == row && inside) list_.userClickRow(row, button);
}

/// Below the current entry where it is in sight, else at the top.
POINT SongListView::menuPlace() const {
  RECT row{};
  RECT room;
  GetClientRect(handle(), &room);
  const int now = list_.listIndex();
  if (now >= 0) ListView_GetItemRect(handle(), now, &row, LVIR_BOUNDS);
  const bool seen = now >= 0 && row.bottom > 0 && row.top < room.bottom;
  POINT place{theme().px(32), seen ? std::min(row.bottom, room.bottom) : theme().px(8)};
  ClientToScreen(handle(), &place);
  return place;
}

void SongListView::activated(LPARAM where) {
  sweeping_ = false;
  pressedRow_ = kNowhere;
  list_.userActivate(rowAt(where, false));
}

std::optional<LRESULT> SongListView::onOwnMessage(UINT message, WPARAM first, LPARAM second) {
  switch (message) {
    case WM_LBUTTONDOWN:
      quietly([&] { pressed(second, first); });
      return 0;
    case WM_LBUTTONDBLCLK:
      quietly([&] { activated(second); });
      return 0;
    case WM_MOUSEMOVE:
      quietly([&] { swept(second); });
      return 0;
    case WM_LBUTTONUP:
      sweeping_ = false;
      ReleaseCapture();
      quietly([&] { letGo(second, controls::MouseButton::Left); });
      return 0;
    case WM_RBUTTONDOWN:
      pressedRow_ = rowAt(second, false);
      return 0;
    case WM_RBUTTONUP:
      quietly([&] { letGo(second, controls::MouseButton::Right); });
      return 0;
    case WM_KEYDOWN:
      quietly([&] { keyDown(first); });
      return 0;
    case WM_CHAR:
      quietly([&] { typed(static_cast<wchar_t>(first)); });
      return 0;
    case WM_PAINT:
    case WM_ERASEBKGND:
      return passOn(message, first, second);
    case LVM_GETSELECTEDCOUNT:
      return list_.selectedCount();
    default:
      return std::nullopt;
  }
}

LRESULT SongListView::describe(LVITEMW& item) const {
  if (item.iItem < 0 || item.iItem >= list_.count()) return 0;
  if (item.mask & LVIF_TEXT) {
    answered_ = wideOf(list_.item(item.iItem));
    item.pszText = answered_.data();
  }
  if (item.mask & LVIF_STATE) item.state = list_.selected(item.iItem) ? LVIS_SELECTED : 0;
  return 0;
}

void SongListView::drawRow(HDC target, int row) {
  RECT area{};
  ListView_GetItemRect(handle(), row, &area, LVIR_BOUNDS);
  RECT client;
  GetClientRect(handle(), &client);
  const int seen =
      static_cast<int>(placed().right - placed().left) - GetSystemMetrics(SM_CXVSCROLL);
  Canvas canvas(seen, area.bottom - area.top);
  paintSongRow(canvas, theme(),
               {list_.item(row), list_.rowMarks ? list_.rowMarks(row) : controls::RowMarks{},
                list_.selected(row), row == list_.listIndex(), enabled(), focused()});
  BitBlt(target, 0, area.top, seen, area.bottom - area.top, canvas.dc(), 0, 0, SRCCOPY);
}

void SongListView::drawHint(HDC target) {
  const int width =
      static_cast<int>(placed().right - placed().left) - GetSystemMetrics(SM_CXVSCROLL);
  const int height = static_cast<int>(placed().bottom - placed().top);
  if (list_.count() > 0 || list_.emptyHint().empty() || width <= 0 || height <= 0) return;
  Canvas canvas(width, height);
  canvas.fillRect({0, 0, width, height}, ink::kWell);
  theme().drawText(canvas, wideOf(list_.emptyHint()), {0, 0, width, height},
                   theme().font(controls::Look::SongList), ink::kFaint, Align::Centre);
  BitBlt(target, 0, 0, width, height, canvas.dc(), 0, 0, SRCCOPY);
}

LRESULT SongListView::drawn(const NMLVCUSTOMDRAW& draw) {
  if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) {
    bar_->follow();
    return CDRF_NOTIFYITEMDRAW | CDRF_NOTIFYPOSTPAINT;
  }
  if (draw.nmcd.dwDrawStage == CDDS_POSTPAINT) drawHint(draw.nmcd.hdc);
  if (draw.nmcd.dwDrawStage != CDDS_ITEMPREPAINT) return CDRF_DODEFAULT;
  const int row = static_cast<int>(draw.nmcd.dwItemSpec);
  if (row < list_.count()) drawRow(draw.nmcd.hdc, row);
  return CDRF_SKIPDEFAULT;
}

std::optional<LRESULT> SongListView::onParentMessage(UINT message, WPARAM, LPARAM second) {
  if (message != WM_NOTIFY) return std::nullopt;
  const auto code = reinterpret_cast<const NMHDR*>(second)->code;
  if (code == LVN_GETDISPINFOW) return describe(reinterpret_cast<NMLVDISPINFOW*>(second)->item);
  if (code == NM_CUSTOMDRAW) return drawn(*reinterpret_cast<const NMLVCUSTOMDRAW*>(second));
  return std::nullopt;
}

}  // namespace nerolith::windows_forms
