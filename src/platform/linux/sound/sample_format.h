// A sound buffer's format in the sound server's words.
#pragma once

#include <pulse/pulseaudio.h>

#include <cstdint>

#include "platform/wave_format.h"

namespace nerolith::sound {

/// Fails unless it is 16-bit PCM of a rate and a number of channels that the server knows, and
/// `bytes`, the size of the buffer, is a whole number of its samples, at least one.
pa_sample_spec pcmFormat(const platform::WaveFormat& format, std::int32_t bytes);

}  // namespace nerolith::sound
