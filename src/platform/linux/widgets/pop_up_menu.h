// A menu of the player's as the toolkit's.
#pragma once

#include "controls/menu.h"

class QMenu;
class QObject;
class QWidget;

namespace nerolith::widgets {

/// Appends the entries of `menu`, as their models are at that moment. They act as long as `context`
/// lives.
void fillMenu(QMenu& popUp, const controls::MenuItem& menu, const QObject& context);

/// Made when it is needed, gone when it closes. Entries show what their models say at that moment.
QMenu* makePopUpMenu(const controls::MenuItem& menu, QWidget* parent);

}  // namespace nerolith::widgets
