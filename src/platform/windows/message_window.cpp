#include "platform/windows/message_window.h"

#include <exception>

namespace nerolith::windows {

MessageWindow::MessageWindow(const wchar_t* className, Handler handler)
    : handler_(std::move(handler)) {
  WNDCLASSEXW look{};
  look.cbSize = sizeof look;
  look.lpfnWndProc = &procedure;
  look.hInstance = GetModuleHandleW(nullptr);
  look.lpszClassName = className;
  RegisterClassExW(&look);  // a second window of the class finds it there
  handle_ = CreateWindowExW(0, className, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, look.hInstance,
                            nullptr);
  if (handle_) SetWindowLongPtrW(handle_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

MessageWindow::~MessageWindow() {
  if (!handle_) return;
  SetWindowLongPtrW(handle_, GWLP_USERDATA, 0);
  DestroyWindow(handle_);
}

std::optional<LRESULT> MessageWindow::answer(UINT message, WPARAM first, LPARAM second) noexcept {
  try {
    return handler_(message, first, second);
  } catch (const std::exception& fault) {
    OutputDebugStringA(fault.what());
  }
  return std::nullopt;
}

LRESULT CALLBACK MessageWindow::procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
  auto* const object = reinterpret_cast<MessageWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (object)
    if (const auto result = object->answer(message, first, second)) return *result;
  return DefWindowProcW(window, message, first, second);
}

}  // namespace nerolith::windows
