#include "recording/wave_format.h"

namespace nerolith::recording {

platform::WaveFormat MakeWaveFormat(std::int32_t samplesPerSecond, std::int16_t channels,
                                    std::int16_t bitsPerSample) {
  constexpr std::int16_t kPcm = 1;
  platform::WaveFormat format;
  format.formatTag = kPcm;
  format.channels = channels;
  format.samplesPerSecond = samplesPerSecond;
  format.blockAlign = static_cast<std::int16_t>(std::int32_t{bitsPerSample} * channels / 8);
  format.averageBytesPerSecond = format.blockAlign * samplesPerSecond;
  format.bitsPerSample = bitsPerSample;
  format.extraSize = 0;
  return format;
}

}  // namespace nerolith::recording
