// The keys that the player's rules name.
#pragma once

#include <windows.h>

#include "controls/keys.h"

namespace nerolith::windows_forms {

/// The key of a key-down message, with what else is held now.
controls::KeyPress keyPressOf(WPARAM key, LPARAM details);

}  // namespace nerolith::windows_forms
