// Push buttons, option buttons and check boxes of the ordinary kind.
#pragma once

#include <QWidget>

#include "controls/buttons.h"

namespace nerolith::widgets {

/// Each makes the toolkit's own widget, bound both ways; the caller's `parent` owns it. A model
/// decides alone what its value is: after a click the widget shows what the model says.
QWidget* makePushButton(controls::CommandButton& button, QWidget* parent);
QWidget* makeOptionButton(controls::OptionButton& button, QWidget* parent);
QWidget* makeCheckBox(controls::CheckBox& box, QWidget* parent);

}  // namespace nerolith::widgets
