// The description of PCM sound.
#pragma once

#include "platform/wave_format.h"

namespace nerolith::recording {

/// PCM without extra fields. The block align is cut off to 16 bits, as is its fraction.
platform::WaveFormat MakeWaveFormat(std::int32_t samplesPerSecond, std::int16_t channels,
                                    std::int16_t bitsPerSample);

}  // namespace nerolith::recording
