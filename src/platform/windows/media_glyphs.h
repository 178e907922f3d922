// The signs on the buttons under the taskbar's thumbnail.
#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

#include "platform/windows/handles.h"

namespace nerolith::windows {

enum class Glyph { Play, Pause, Next, Stop };

/// `size` by `size` pixels from the top, 0xAARRGGBB: a light sign with a dark rim, legible on light
/// and on dark thumbnails.
std::vector<std::uint32_t> glyphPixels(Glyph glyph, int size);

using Icon = Handle<HICON, &DestroyIcon>;

/// Empty where the system has no icon to give.
Icon glyphIcon(Glyph glyph, int size);

}  // namespace nerolith::windows
