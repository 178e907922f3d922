// What sound samples look like.
#pragma once

#include <cstdint>

namespace nerolith::platform {

/// The fields of a WAVEFORMATEX, in its order.
struct WaveFormat {
  std::int16_t formatTag = 0;  // 1: PCM
  std::int16_t channels = 0;
  std::int32_t samplesPerSecond = 0;
  std::int32_t averageBytesPerSecond = 0;
  std::int16_t blockAlign = 0;  // bytes of one sample of all channels
  std::int16_t bitsPerSample = 0;
  std::int16_t extraSize = 0;

  bool operator==(const WaveFormat&) const = default;
};

}  // namespace nerolith::platform
