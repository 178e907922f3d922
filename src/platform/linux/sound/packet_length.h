// How long the sound of an opened file lasts, where its header cannot be believed.
#pragma once

#include "platform/linux/sound/av_handles.h"

namespace nerolith::sound {

/// Seconds of `stream`'s sound, right to within 0.1 s. Trusts a length that the container states;
/// where libav only guesses (from the bit rate, or from the last time stamps of a film) the packets
/// are read: all of them, or the last ones of a film. Leaves the container at its beginning.
double soundLength(AVFormatContext& container, AVStream& stream);

}  // namespace nerolith::sound
