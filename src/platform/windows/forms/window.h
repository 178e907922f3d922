// One window of the system, and the single procedure that all of them share.
#pragma once

#include <windows.h>

#include <optional>

namespace nerolith::windows_forms {

/// Made with `create`, of the system's own class or of the plain one; every message then comes by
/// `onMessage` first, and what that does not answer goes to the class's own procedure. Ends the
/// window when it is destroyed itself. No exception gets past it. All on one thread.
class Window {
 public:
  virtual ~Window();
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  /// Empty before `create`, and once the system has ended the window.
  HWND handle() const { return handle_; }
  /// The object of a window that was made here; nullptr for another.
  static Window* of(HWND handle);

 protected:
  Window() = default;

  struct Wanted {
    const wchar_t* className;
    DWORD style;
    DWORD extended = 0;
    HWND parent = nullptr;  // of a top-level window: its owner
    const wchar_t* text = L"";
  };
  /// Throws base::Failure where the system has no window to give.
  void create(const Wanted& wanted);
  /// The class of windows that nothing but `onMessage` answers for.
  static const wchar_t* plainClass();

  virtual std::optional<LRESULT> onMessage(UINT message, WPARAM first, LPARAM second) = 0;
  /// The class's own answer.
  LRESULT passOn(UINT message, WPARAM first, LPARAM second);

 private:
  static LRESULT CALLBACK procedure(HWND handle, UINT message, WPARAM first, LPARAM second);
  std::optional<LRESULT> answer(UINT message, WPARAM first, LPARAM second) noexcept;

  HWND handle_ = nullptr;
  WNDPROC before_ = nullptr;
};

}  // namespace nerolith::windows_forms
