// A label that is a push button.
#pragma once

#include "controls/label.h"

class QWidget;

namespace nerolith::widgets {

/// The caption is shown as it stands; a press is the label's click.
QWidget* makeLabelKey(controls::Label& label, QWidget* parent);

}  // namespace nerolith::widgets
