// A menu of the player's as the toolkit's.
#pragma once

#include "controls/menu.h"

class QMenu;
class QWidget;

namespace nerolith::widgets {

/// Made when it is needed, gone when it closes. Entries show what their models say at that moment.
QMenu* makePopUpMenu(const controls::MenuItem& menu, QWidget* parent);

}  // namespace nerolith::widgets
