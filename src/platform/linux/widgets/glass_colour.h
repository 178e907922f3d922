// Which glass a colour can be read on.
#pragma once

#include <QColor>

#include "controls/colour.h"

namespace nerolith::widgets {

QColor toQColor(controls::Colour colour);

/// Contrast of two opaque colours as the accessibility guidelines define it: 1 (none) .. 21.
double contrastRatio(const QColor& one, const QColor& other);

/// The glass behind a text of this colour: dark where the colour stands out from dark glass by 3:1
/// or more, else light.
QColor glassFor(const QColor& colour);

/// White or near black, whichever reads better on `background`.
QColor inkFor(const QColor& background);

}  // namespace nerolith::widgets
