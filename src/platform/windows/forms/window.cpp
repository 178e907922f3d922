#include "platform/windows/forms/window.h"

#include "base/failure.h"
#include "platform/windows/forms/quietly.h"

namespace nerolith::windows_forms {
namespace {

constexpr const wchar_t* kObject = L"Nerolith.Window";
constexpr const wchar_t* kPlainClass = L"NerolithWindow";
constexpr int kIconResource = 1;

}  // namespace

const wchar_t* Window::plainClass() {
  static const ATOM registered = [] {
    WNDCLASSEXW look{};
    look.cbSize = sizeof look;
    look.lpfnWndProc = DefWindowProcW;
    look.hInstance = GetModuleHandleW(nullptr);
    look.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    look.hIcon = LoadIconW(look.hInstance, MAKEINTRESOURCEW(kIconResource));
    look.style = CS_DBLCLKS;
    look.lpszClassName = kPlainClass;
    return RegisterClassExW(&look);
  }();
  (void)registered;  // where it failed, making the window fails as well
  return kPlainClass;
}

Window::~Window() {
  if (!handle_) return;
  // What the end still says is for the class alone: the derived object is gone already.
  SetWindowLongPtrW(handle_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(before_));
  RemovePropW(handle_, kObject);
  DestroyWindow(handle_);
}

Window* Window::of(HWND handle) { return static_cast<Window*>(GetPropW(handle, kObject)); }

void Window::create(const Wanted& wanted) {
  handle_ = CreateWindowExW(wanted.extended, wanted.className, wanted.text, wanted.style,
                            CW_USEDEFAULT, CW_USEDEFAULT, 10, 10, wanted.parent, nullptr,
                            GetModuleHandleW(nullptr), nullptr);
  if (!handle_) throw base::Failure("A window could not be made", static_cast<int>(GetLastError()));
  SetPropW(handle_, kObject, this);
  before_ = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(handle_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&procedure)));
}

LRESULT Window::passOn(UINT message, WPARAM first, LPARAM second) {
  return handle_ ? CallWindowProcW(before_, handle_, message, first, second) : 0;
}

std::optional<LRESULT> Window::answer(UINT message, WPARAM first, LPARAM second) noexcept {
  std::optional<LRESULT> result;
  quietly([&] { result = onMessage(message, first, second); });
  return result;
}

LRESULT CALLBACK Window::procedure(HWND handle, UINT message, WPARAM first, LPARAM second) {
  Window* window = of(handle);
  if (!window) return DefWindowProcW(handle, message, first, second);
  if (message == WM_NCDESTROY) {
    const WNDPROC before = window->before_;
    window->handle_ = nullptr;
    RemovePropW(handle, kObject);
    return CallWindowProcW(before, handle, message, first, second);
  }
  if (const std::optional<LRESULT> result = window->answer(message, first, second)) return *result;
  // The answer may have ended the window.
  return of(handle) == window ? window->passOn(message, first, second) : 0;
}

}  // namespace nerolith::windows_forms
