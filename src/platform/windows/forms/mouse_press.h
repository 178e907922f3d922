// A press of the mouse on a button that leaves the keyboard where it is.
#pragma once

#include <windows.h>

namespace nerolith::windows_forms {

/// The class of buttons would take the keyboard with each press, away from the list of songs. This
/// holds the button down while the mouse is over it instead, and tells when it was let go there.
class MousePress {
 public:
  enum class Told { Nothing, Handled, Clicked };

  /// For the button's left-button and mouse-move messages.
  Told hear(HWND button, UINT message, LPARAM where);

 private:
  bool held_ = false;
};

}  // namespace nerolith::windows_forms
