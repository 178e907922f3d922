// What only newer systems know about their displays; older ones get the answer they would give.
#pragma once

#include <windows.h>

namespace nerolith::windows_forms {

/// Dots per inch where the window is shown.
int dpiOf(HWND window);
/// A dark title bar, where the system has one.
void darkenTitleBar(HWND window);

}  // namespace nerolith::windows_forms
