#include "platform/windows/forms/folder_popup.h"

#include <windowsx.h>

#include <algorithm>

#include "platform/windows/forms/quietly.h"
#include "platform/windows/forms/wide_text.h"

namespace nerolith::windows_forms {
namespace {

constexpr int kStep = 14;
constexpr int kRow = 24;
constexpr int kDeepest = 12;  // steps that are drawn further in
constexpr Ink kGround{0x1c, 0x21, 0x26};
constexpr Ink kRim{0x5a, 0x66, 0x72};
constexpr Ink kClosed{0x8a, 0x78, 0x4c};

std::string lastName(const std::string& path) {
  const std::size_t end = path.find_last_not_of("/\\");
  if (end == std::string::npos) return path;
  const std::size_t cut = path.find_last_of("/\\", end);
  return cut == std::string::npos ? path : path.substr(cut + 1, end - cut);
}

void paintFolder(Canvas& canvas, double x, double y, double unit, bool open) {
  Shape shape;
  shape.roundedRect({x, y - 4 * unit, x + 14 * unit, y + 5 * unit}, 1.5 * unit);
  shape.roundedRect({x, y - 6 * unit, x + 6 * unit, y - unit}, 1.5 * unit);
  canvas.fill(shape, open ? ink::kAmber : kClosed);
}

}  // namespace

FolderPopup::FolderPopup(FormGround& ground, controls::DirListBox& folders)
    : ControlView(ground, folders), folders_(folders), fill_(CreateSolidBrush(kGround.ref())) {
  create({L"LISTBOX",
          WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP | WS_BORDER | WS_VSCROLL | LBS_OWNERDRAWFIXED |
              LBS_HASSTRINGS | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT,
          0, ground.window()});
  themeChanged();
  bind();
}

void FolderPopup::themeChanged() {
  SendMessageW(handle(), WM_SETFONT,
               reinterpret_cast<WPARAM>(theme().font(controls::Look::SongList)), FALSE);
  SendMessageW(handle(), LB_SETITEMHEIGHT, 0, theme().px(kRow));
}

int FolderPopup::rows() const {
  return static_cast<int>(folders_.ancestors().size() + folders_.folders().size());
}

std::string FolderPopup::nameAt(std::size_t row) const {
  const auto& steps = folders_.ancestors();
  return row < steps.size() ? lastName(steps[row]) : folders_.folders()[row - steps.size()];
}

std::string FolderPopup::pathAt(std::size_t row) const {
  const auto& steps = folders_.ancestors();
  if (row < steps.size()) return steps[row];
  std::string path = folders_.path();
  if (path.empty() || path.back() != '\\') path += '\\';
  return path + folders_.folders()[row - steps.size()];
}

Extent FolderPopup::extent() const {
  const int height = rows() * theme().px(kRow) + 2;
  return {theme().px(420), height, theme().px(120), theme().px(60), true, true};
}

void FolderPopup::refresh() {
  setSpokenName({});
  std::vector<std::string> now;
  now.reserve(static_cast<std::size_t>(rows()));
  for (int row = 0; row < rows(); ++row) now.push_back(nameAt(static_cast<std::size_t>(row)));
  if (now != listed_) {
    listed_ = std::move(now);
    SendMessageW(handle(), WM_SETREDRAW, FALSE, 0);
    SendMessageW(handle(), LB_RESETCONTENT, 0, 0);
    for (const std::string& name : listed_)
      SendMessageW(handle(), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(wideOf(name).c_str()));
    SendMessageW(handle(), WM_SETREDRAW, TRUE, 0);
    ground_.layoutChanged();
  }
  const int here = static_cast<int>(folders_.ancestors().size()) - 1;
  if (here >= 0) {
    SendMessageW(handle(), LB_SETCURSEL, static_cast<WPARAM>(here), 0);
    SendMessageW(handle(), LB_SETTOPINDEX, static_cast<WPARAM>(std::max(0, here - 2)), 0);
  }
  repaint();
}

void FolderPopup::open() {
  const LRESULT row = SendMessageW(handle(), LB_GETCURSEL, 0, 0);
  if (row < 0 || row >= rows()) return;
  quietly([&] { folders_.userOpen(pathAt(static_cast<std::size_t>(row))); });
}

bool FolderPopup::keyDown(WPARAM key) {
  if (key == VK_ESCAPE) {
    quietly([this] { folders_.setVisible(false); });
    return true;
  }
  if (key == VK_RETURN) {
    open();
    return true;
  }
  if (key == VK_SPACE) {
    quietly([this] { folders_.userClick(); });
    return true;
  }
  return false;
}

LRESULT FolderPopup::draw(const DRAWITEMSTRUCT& item) const {
  if (item.itemID >= listed_.size()) return TRUE;
  const RECT& area = item.rcItem;
  Canvas canvas(area.right - area.left, area.bottom - area.top);
  const RECT whole{0, 0, canvas.width(), canvas.height()};
  const bool marked = item.itemState & ODS_SELECTED;
  canvas.fillRect(whole, marked ? ink::kSelection : kGround);
  const auto steps = static_cast<int>(folders_.ancestors().size());
  const auto row = static_cast<int>(item.itemID);
  const int depth = std::min(row < steps ? row : steps, kDeepest);
  const int left = theme().px(11 + depth * kStep);
  paintFolder(canvas, left, canvas.height() / 2.0 + theme().exact(1), theme().exact(1),
              row < steps);
  theme().drawText(canvas, wideOf(listed_[item.itemID]),
                   {left + theme().px(21), 0, whole.right - theme().px(8), whole.bottom},
                   theme().font(controls::Look::SongList), marked ? ink::kOnSelection : ink::kPlain,
                   Align::Left, Shorten::Middle);
  if (marked && focused()) theme().paintFocus(canvas, canvas.area().inset(1));
  BitBlt(item.hDC, area.left, area.top, whole.right, whole.bottom, canvas.dc(), 0, 0, SRCCOPY);
  return TRUE;
}

std::optional<LRESULT> FolderPopup::onParentMessage(UINT message, WPARAM first, LPARAM second) {
  switch (message) {
    case WM_COMMAND:
      if (HIWORD(first) == LBN_DBLCLK) open();
      return 0;
    case WM_DRAWITEM:
      return draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(second));
    case WM_CTLCOLORLISTBOX:
      SetBkColor(reinterpret_cast<HDC>(first), kGround.ref());
      return reinterpret_cast<LRESULT>(fill_.get());
    default:
      return std::nullopt;
  }
}

void FolderPopup::paintFrame() {
  RECT area;
  GetWindowRect(handle(), &area);
  OffsetRect(&area, -area.left, -area.top);
  HDC dc = GetWindowDC(handle());
  const Brush rim(CreateSolidBrush(kRim.ref()));
  FrameRect(dc, &area, rim.get());
  ReleaseDC(handle(), dc);
}

std::optional<LRESULT> FolderPopup::onOwnMessage(UINT message, WPARAM first, LPARAM second) {
  switch (message) {
    case WM_NCPAINT:
      passOn(message, first, second);
      paintFrame();
      return 0;
    case WM_PAINT:
    case WM_ERASEBKGND:
      return passOn(message, first, second);
    case WM_KEYDOWN:
      return keyDown(first) ? std::optional<LRESULT>(0) : std::nullopt;
    case WM_LBUTTONUP: {
      const LRESULT result = passOn(message, first, second);
      quietly([this] { folders_.userClick(); });
      return result;
    }
    default:
      return std::nullopt;
  }
}

}  // namespace nerolith::windows_forms
