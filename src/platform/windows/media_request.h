// What the system calls when a media button is pressed somewhere.
#pragma once

#include <windows.h>

#include "platform/windows/transport_controls_abi.h"

namespace nerolith::windows {

/// Posted to the window that a request was made for; the system calls on a thread of its own.
inline constexpr UINT kButtonRequest = WM_APP;        // first: abi::Button
inline constexpr UINT kPositionRequest = WM_APP + 1;  // second: milliseconds

/// Handlers for buttons and for a place in the song. Each comes with one reference, the caller's.
abi::Handler* newButtonHandler(HWND window);
abi::Handler* newPositionHandler(HWND window);

}  // namespace nerolith::windows
