// A menu popped up over a window.
#pragma once

#include <windows.h>

#include "controls/menu.h"

namespace nerolith::windows_forms {

/// Shows the menu with its corner at `where` (screen) and waits for the choice, which is then
/// raised as the item's click. Timers and painting go on meanwhile.
void showPopUpMenu(HWND owner, const controls::MenuItem& menu, POINT where);

}  // namespace nerolith::windows_forms
