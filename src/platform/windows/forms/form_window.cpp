#include "platform/windows/forms/form_window.h"

#include <commctrl.h>

#include <algorithm>

#include "controls/side_place.h"
#include "platform/windows/forms/display_dpi.h"
#include "platform/windows/forms/pop_up_menu.h"
#include "platform/windows/forms/quietly.h"
#include "platform/windows/forms/wide_text.h"

namespace nerolith::windows_forms {
namespace {

constexpr UINT kLayOut = WM_APP;
constexpr UINT kPopUp = WM_APP + 1;
constexpr UINT kFilesDropped = WM_APP + 2;
constexpr int kOverlayMargin = 14;
constexpr int kLowestOverlay = 60;

DWORD styleOf(const controls::Form& form) {
  return form.resizable() ? WS_OVERLAPPEDWINDOW : WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU;
}

}  // namespace

FormWindow::FormWindow(controls::Form& form, HWND owner) : form_(form) {
  create({plainClass(), styleOf(form) | WS_CLIPCHILDREN, 0, owner});
  theme_ = std::make_unique<Theme>(dpiOf(handle()));
  darkenTitleBar(handle());
  toolTips_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                              WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0, 0, handle(),
                              nullptr, GetModuleHandleW(nullptr), nullptr);
  build();
  drop_ = std::make_unique<FileDrop>(handle(), kFilesDropped, form_);
  subscribe();
  takeSize();
}

FormWindow::~FormWindow() {
  drop_.reset();
  layout_.reset();
}

void FormWindow::build() {
  layout_ = std::make_unique<FormLayout>(static_cast<FormGround&>(*this), form_.layout());
  for (const controls::Overlay& overlay : form_.overlays())
    if (ControlView* view = layout_->addOverlay(overlay))
      floating_.push_back({overlay, view, layout_->viewOf(overlay.anchor)});
}

HWND FormWindow::windowOf(const controls::PlacedControl& control) const {
  const ControlView* view = layout_->viewOf(control);
  return view ? view->handle() : nullptr;
}

void FormWindow::subscribe() {
  subscriptions_.push_back(form_.changed.subscribe([this] { quietly([this] { followForm(); }); }));
  subscriptions_.push_back(
      form_.besideRequested.subscribe([this] { quietly([this] { placeBesideOwner(); }); }));
  subscriptions_.push_back(
      form_.forwardRequested.subscribe([this] { quietly([this] { bringForward(); }); }));
  subscriptions_.push_back(
      form_.focusRequested.subscribe([this] { quietly([this] { bringForward(); }); }));
  subscriptions_.push_back(
      form_.minimiseRequested.subscribe([this] { ShowWindow(handle(), SW_MINIMIZE); }));
  subscriptions_.push_back(form_.popUpRequested.subscribe([this](const controls::MenuItem& menu) {
    // The menu has a loop of its own: the event that asks for it shall be over by then.
    waitingMenu_ = &menu;
    PostMessageW(handle(), kPopUp, 0, 0);
  }));
}

void FormWindow::takePicture() {
  const void* pixels = form_.picture().pixels.data();
  if (std::exchange(picturePixels_, pixels) == pixels) return;
  backdrop_.setPicture(form_.picture());
  panelChanged();
}

void FormWindow::followForm() {
  SetWindowTextW(handle(), wideOf(form_.caption()).c_str());
  takePicture();
  show(form_.visible());
}

void FormWindow::show(bool visible) {
  if (shown_ == visible) return;
  shown_ = visible;
  if (visible) layOut();
  besidePlace_ = {};
  if (visible && form_.besideOwner()) placeBesideOwner();
  if (visible && !form_.besideOwner() && GetWindow(handle(), GW_OWNER)) moveOverOwner();
  ShowWindow(handle(), visible ? SW_SHOW : SW_HIDE);
  if (visible) UpdateWindow(handle());
}

void FormWindow::bringForward() {
  if (IsIconic(handle())) ShowWindow(handle(), SW_RESTORE);
  SetForegroundWindow(handle());
}

SIZE FormWindow::frameSize() const {
  RECT whole;
  RECT inside;
  GetWindowRect(handle(), &whole);
  GetClientRect(handle(), &inside);
  return {whole.right - whole.left - inside.right, whole.bottom - whole.top - inside.bottom};
}

/// The part of the screen that windows may take, there where the window belongs.
RECT FormWindow::workArea() const {
  const HWND owner = GetWindow(handle(), GW_OWNER);
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(owner ? owner : handle(), MONITOR_DEFAULTTONEAREST), &monitor);
  return monitor.rcWork;
}

void FormWindow::moveOverOwner() {
  RECT around;
  RECT place;
  GetWindowRect(GetWindow(handle(), GW_OWNER), &around);
  GetWindowRect(handle(), &place);
  const RECT work = workArea();
  const LONG width = place.right - place.left;
  const LONG height = place.bottom - place.top;
  const LONG left = std::clamp((around.left + around.right - width) / 2, work.left,
                               std::max(work.left, work.right - width));
  const LONG top = std::clamp((around.top + around.bottom - height) / 2, work.top,
                              std::max(work.top, work.bottom - height));
  SetWindowPos(handle(), nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

/// Once for each place of the owner: between its moves the user may put this window elsewhere.
void FormWindow::placeBesideOwner() {
  const HWND owner = GetWindow(handle(), GW_OWNER);
  RECT around;
  RECT place;
  if (!owner || !shown_ || IsIconic(owner) || !GetWindowRect(owner, &around)) return;
  if (EqualRect(&around, &besidePlace_)) return;
  besidePlace_ = around;
  GetWindowRect(handle(), &place);
  const auto area = [](const RECT& rect) {
    return controls::DesktopArea{static_cast<int>(rect.left), static_cast<int>(rect.top),
                                 static_cast<int>(rect.right), static_cast<int>(rect.bottom)};
  };
  const auto corner =
      controls::placeAtSide(area(around), static_cast<int>(place.right - place.left),
                            static_cast<int>(place.bottom - place.top), area(workArea()));
  SetWindowPos(handle(), nullptr, corner.x, corner.y, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

/// As large as the layout wants to be, and never larger than the screen.
void FormWindow::takeSize() {
  SetWindowPos(handle(), nullptr, 0, 0, 400, 300, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  const SIZE frame = frameSize();
  const Extent extent = layout_->extent();
  const RECT work = workArea();
  const LONG width = std::min(extent.width + frame.cx, work.right - work.left);
  const LONG height = std::min(extent.height + frame.cy, work.bottom - work.top);
  RECT place;
  GetWindowRect(handle(), &place);
  const LONG left = std::clamp(place.left, work.left, work.right - width);
  const LONG top = std::clamp(place.top, work.top, work.bottom - height);
  SetWindowPos(handle(), nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::paintBehind(HWND view, Canvas& canvas) {
  RECT room;
  GetClientRect(handle(), &room);
  POINT corner{0, 0};
  MapWindowPoints(view, handle(), &corner, 1);
  canvas.copyFrom(backdrop_.painted(room.right, room.bottom, *layout_, *theme_), corner.x,
                  corner.y);
}

void FormWindow::layoutChanged() {
  if (layoutWaits_) return;
  layoutWaits_ = true;
  PostMessageW(handle(), kLayOut, 0, 0);
}

void FormWindow::panelChanged() {
  backdrop_.forget();
  RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

void FormWindow::setToolTip(HWND view, const std::wstring& text) {
  std::wstring words = text;
  TTTOOLINFOW tool{};
  tool.cbSize = sizeof tool;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = handle();
  tool.uId = reinterpret_cast<UINT_PTR>(view);
  tool.lpszText = words.data();
  SendMessageW(toolTips_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  if (!words.empty()) SendMessageW(toolTips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void FormWindow::layOut() {
  layoutWaits_ = false;
  if (!layout_) return;
  RECT room;
  GetClientRect(handle(), &room);
  if (room.right <= 0 || room.bottom <= 0) return;
  if (layout_->place(room)) panelChanged();
  placeOverlays();
}

void FormWindow::placeOverlays() {
  RECT room;
  GetClientRect(handle(), &room);
  const int margin = theme_->px(kOverlayMargin);
  for (const Floating& floating : floating_) {
    if (!floating.anchor || !floating.view->shown()) continue;
    RECT corner;
    GetWindowRect(floating.anchor->handle(), &corner);
    POINT below{corner.left, corner.bottom};
    ScreenToClient(handle(), &below);
    const int width =
        std::min<int>(theme_->px(floating.overlay.width), room.right - below.x - margin);
    const int wanted =
        std::min(theme_->px(floating.overlay.height), floating.view->extent().height);
    const int height =
        std::max(std::min<int>(wanted, room.bottom - below.y - margin), theme_->px(kLowestOverlay));
    floating.view->place({below.x, below.y, below.x + width, below.y + height});
    BringWindowToTop(floating.view->handle());
  }
}

bool FormWindow::ownsOverlay(HWND window) const {
  return std::any_of(floating_.begin(), floating_.end(), [window](const Floating& floating) {
    return (floating.anchor && window == floating.anchor->handle()) ||
           window == floating.view->handle();
  });
}

void FormWindow::popUp() {
  const controls::MenuItem* menu = std::exchange(waitingMenu_, nullptr);
  if (!menu) return;
  POINT where;
  GetCursorPos(&where);
  const HWND focus = GetFocus();
  // The sign of the key that asks for the menu still waits; Enter would close it at once.
  MSG sign;
  while (lastInputWasKey_ && PeekMessageW(&sign, nullptr, WM_CHAR, WM_CHAR, PM_REMOVE)) continue;
  const auto* view = focus ? dynamic_cast<const ControlView*>(of(focus)) : nullptr;
  if (lastInputWasKey_ && view && IsChild(handle(), focus)) where = view->menuPlace();
  // A window out of sight: only the one in front hears that the user clicks elsewhere, and it has
  // to get a message behind the menu's, or the next menu would close at once.
  if (!shown_) SetForegroundWindow(handle());
  showPopUpMenu(handle(), *menu, where);
  if (!shown_) PostMessageW(handle(), WM_NULL, 0, 0);
}

std::optional<LRESULT> FormWindow::toView(HWND view, UINT message, WPARAM first, LPARAM second) {
  auto* target = view && view != handle() ? dynamic_cast<ControlView*>(of(view)) : nullptr;
  return target ? target->onParentMessage(message, first, second) : std::nullopt;
}

LRESULT FormWindow::activated(UINT message, WPARAM first, LPARAM second) {
  if (LOWORD(first) == WA_INACTIVE && IsChild(handle(), GetFocus())) focused_ = GetFocus();
  const LRESULT result = passOn(message, first, second);
  const bool minimised = HIWORD(first) != 0;
  if (LOWORD(first) != WA_INACTIVE && !minimised) quietly([this] { form_.activate.raise(); });
  return result;
}

/// The system gives the keyboard to the window, not to the control that had it.
std::optional<LRESULT> FormWindow::focusCame() {
  if (!IsChild(handle(), focused_) || !IsWindowVisible(focused_) || !IsWindowEnabled(focused_))
    return std::nullopt;
  SetFocus(focused_);
  return 0;
}

LRESULT FormWindow::closed() {
  quietly([this] { form_.close(); });  // the form hides the window when it is done
  return 0;
}

LRESULT FormWindow::painted() {
  const PaintScope scope(handle());
  RECT room;
  GetClientRect(handle(), &room);
  if (layout_ && room.right > 0 && room.bottom > 0)
    backdrop_.painted(room.right, room.bottom, *layout_, *theme_).showOn(scope.dc(), scope.area());
  return 0;
}

LRESULT FormWindow::sized(WPARAM kind) {
  if (kind == SIZE_MINIMIZED) return 0;
  layOut();
  panelChanged();
  return 0;
}

LRESULT FormWindow::dpiChanged(int dpi, const RECT& place) {
  theme_ = std::make_unique<Theme>(dpi);
  for (const auto& view : layout_->views()) view->themeChanged();
  SetWindowPos(handle(), nullptr, place.left, place.top, place.right - place.left,
               place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
  layOut();
  panelChanged();
  return 0;
}

LRESULT FormWindow::bounded(MINMAXINFO& bounds) const {
  if (!layout_) return 0;
  const Extent extent = layout_->extent();
  const SIZE frame = frameSize();
  bounds.ptMinTrackSize = {extent.leastWidth + frame.cx, extent.leastHeight + frame.cy};
  return 0;
}

std::optional<LRESULT> FormWindow::onMessage(UINT message, WPARAM first, LPARAM second) {
  if (listener_)
    if (const auto answer = listener_(handle(), message, first, second)) return answer;
  return onFormMessage(message, first, second);
}

std::optional<LRESULT> FormWindow::onFormMessage(UINT message, WPARAM first, LPARAM second) {
  switch (message) {
    case WM_COMMAND:
      return toView(reinterpret_cast<HWND>(second), message, first, second);
    case WM_NOTIFY:
      return toView(reinterpret_cast<NMHDR*>(second)->hwndFrom, message, first, second);
    case WM_DRAWITEM:
      return toView(reinterpret_cast<DRAWITEMSTRUCT*>(second)->hwndItem, message, first, second);
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORLISTBOX:
      return toView(reinterpret_cast<HWND>(second), message, first, second);
    case WM_PAINT:
      return painted();
    case WM_ERASEBKGND:
      return 1;
    case WM_SIZE:
      return sized(first);
    case WM_GETMINMAXINFO:
      return bounded(*reinterpret_cast<MINMAXINFO*>(second));
    case WM_DPICHANGED:
      return dpiChanged(LOWORD(first), *reinterpret_cast<const RECT*>(second));
    case WM_ACTIVATE:
      return activated(message, first, second);
    case WM_SETFOCUS:
      return focusCame();
    case WM_CLOSE:
      return closed();
    case WM_SYSCOMMAND:  // a lone Alt would take the keyboard to the window's own menu
      return (first & 0xFFF0) == SC_KEYMENU && second == 0 ? std::optional<LRESULT>(0)
                                                           : std::nullopt;
    default:
      return onOwnMessage(message);
  }
}

std::optional<LRESULT> FormWindow::onOwnMessage(UINT message) {
  switch (message) {
    case kLayOut:
      layOut();
      return 0;
    case kPopUp:
      popUp();
      return 0;
    case kFilesDropped:
      quietly([this] { drop_->handOver(); });
      return 0;
    default:
      return std::nullopt;
  }
}

}  // namespace nerolith::windows_forms
