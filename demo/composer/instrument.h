// The sound of a single note.
#pragma once

#include <vector>

#include "note.h"

namespace nerolith::demo {

/// The samples of one note, mono, its ringing after the note's end included.
/// `frequency` in hertz, `seconds` until the key is let go, `seed` varies what is noise in it.
std::vector<float> play(Voice voice, double frequency, double seconds, double velocity,
                        unsigned seed);

}  // namespace nerolith::demo
