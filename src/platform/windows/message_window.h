// A window that is never seen: where messages for the program arrive.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>

namespace nerolith::windows {

/// Found by other processes under its class; anybody may post to it, from any thread. What its
/// handler does not answer goes to the system. Belongs to the thread that made it, whose message
/// loop has to run. No failure of the handler gets past it.
class MessageWindow {
 public:
  using Handler = std::function<std::optional<LRESULT>(UINT message, WPARAM, LPARAM)>;

  /// `handle()` is empty where the system has no window to give.
  MessageWindow(const wchar_t* className, Handler handler);
  ~MessageWindow();
  MessageWindow(const MessageWindow&) = delete;
  MessageWindow& operator=(const MessageWindow&) = delete;

  HWND handle() const { return handle_; }

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second);
  std::optional<LRESULT> answer(UINT message, WPARAM first, LPARAM second) noexcept;

  Handler handler_;
  HWND handle_ = nullptr;
};

}  // namespace nerolith::windows
