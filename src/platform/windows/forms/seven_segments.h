// Digits made of seven bars.
#pragma once

#include <string>

#include "platform/windows/forms/canvas.h"

namespace nerolith::windows_forms {

enum class SegmentGlow { None, Soft };

/// Draws `text` (digits, ":" and "-"; anything else is a blank) into `room`, from the left and as
/// high as the room, narrower only where it would not fit. Unlit bars show faintly; `dot` is one
/// pixel at 96 dots per inch.
void paintSevenSegments(Canvas& canvas, const Area& room, const std::wstring& text,
                        const Ink& colour, SegmentGlow glow, double dot);

}  // namespace nerolith::windows_forms
