// A key that is held while others are pressed.
#pragma once

#include <windows.h>

namespace nerolith::windows_forms {

/// Holds Shift, Control or Alt down for each key that is taken out of this thread's queue. What
/// comes in between can bring the state of the real keyboard along, were it set any sooner. One at
/// a time.
class HeldKey {
 public:
  explicit HeldKey(int key)
      : hook_(SetWindowsHookExW(WH_GETMESSAGE, &taken, nullptr, GetCurrentThreadId())) {
    key_ = key;
  }
  ~HeldKey() {
    UnhookWindowsHookEx(hook_);
    hold(false);
  }
  HeldKey(const HeldKey&) = delete;
  HeldKey& operator=(const HeldKey&) = delete;

 private:
  static void hold(bool down) {
    BYTE keys[256];
    GetKeyboardState(keys);
    keys[key_] = down ? 0x80 : 0;
    SetKeyboardState(keys);
  }
  static LRESULT CALLBACK taken(int code, WPARAM removed, LPARAM data) {
    const auto& message = *reinterpret_cast<const MSG*>(data);
    if (code == HC_ACTION && removed == PM_REMOVE &&
        (message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN))
      hold(true);
    return CallNextHookEx(nullptr, code, removed, data);
  }

  static inline int key_ = 0;
  HHOOK hook_;
};

}  // namespace nerolith::windows_forms
