// A press of the mouse on a button, which need not take the keyboard there.
#pragma once

#include <windows.h>

namespace nerolith::windows_forms {

/// The class of buttons would take the keyboard with each press, away from the list of songs. This
/// holds the button down while the mouse is over it instead, and tells when it was let go there.
/// The buttons of a window to fill in take the keyboard all the same: the box that was being filled
/// in is thereby left.
class MousePress {
 public:
  enum class Told { Nothing, Handled, Clicked };
  enum class Keyboard { Stays, Comes };

  explicit MousePress(Keyboard keyboard) : keyboard_(keyboard) {}

  /// For the button's left-button and mouse-move messages.
  Told hear(HWND button, UINT message, LPARAM where);

 private:
  Keyboard keyboard_;
  bool held_ = false;
};

}  // namespace nerolith::windows_forms
