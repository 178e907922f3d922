#include "platform/windows/forms/key_names.h"

namespace nerolith::windows_forms {
namespace {

controls::Key keyOf(WPARAM key) {
  if (key >= 'A' && key <= 'Z') return controls::letterKey(static_cast<char>(key));
  if (key >= VK_F1 && key <= VK_F10)
    return static_cast<controls::Key>(static_cast<int>(controls::Key::F1) +
                                      static_cast<int>(key - VK_F1));
  switch (key) {
    case VK_RETURN:
      return controls::Key::Enter;
    case VK_ESCAPE:
      return controls::Key::Escape;
    case VK_SPACE:
      return controls::Key::Space;
    case VK_DELETE:
      return controls::Key::Delete;
    case VK_APPS:
      return controls::Key::Menu;
    default:
      return controls::Key::Other;
  }
}

}  // namespace

controls::KeyPress keyPressOf(WPARAM key, LPARAM details) {
  constexpr LPARAM altDown = 1 << 29;
  controls::KeyPress press;
  press.key = keyOf(key);
  press.shift = GetKeyState(VK_SHIFT) < 0;
  press.control = GetKeyState(VK_CONTROL) < 0;
  press.alt = (details & altDown) != 0 || GetKeyState(VK_MENU) < 0;
  return press;
}

}  // namespace nerolith::windows_forms
