// The keys that the player's rules name.
#pragma once

#include "controls/keys.h"

class QKeyEvent;

namespace nerolith::widgets {

controls::KeyPress keyPressOf(const QKeyEvent& event);

}  // namespace nerolith::widgets
