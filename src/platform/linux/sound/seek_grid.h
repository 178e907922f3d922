// Where to start so that a seek through the resampler lands on the very same frames as playing.
#pragma once

#include <algorithm>
#include <cstdint>
#include <numeric>

#include "platform/linux/sound/audio_source.h"

namespace nerolith::sound {

/// Frames of the mix that `samples` of a file at `rate` Hz last, to the nearest.
constexpr std::int64_t framesOfSamples(std::int64_t samples, int rate) {
  return (samples * kSampleRate + rate / 2) / rate;
}

struct SeekStart {
  std::int64_t sample = 0;   // of the file: the first to be pushed
  std::int64_t discard = 0;  // frames of the mix to be dropped from what comes out
};

/// The resampler's phase repeats every so many samples; starting on such a point, and some way
/// before the target so that its filter is filled, gives the frames that playing would have given.
constexpr SeekStart seekStart(std::int64_t frame, int rate) {
  if (rate <= 0 || rate == kSampleRate) return {frame, 0};
  const std::int64_t common = std::gcd(rate, kSampleRate);
  const std::int64_t samplesPerTurn = rate / common;
  const std::int64_t framesPerTurn = kSampleRate / common;
  constexpr std::int64_t kFilterSamples = 128;
  const std::int64_t turn =
      std::max<std::int64_t>(0, frame / framesPerTurn - kFilterSamples / samplesPerTurn - 1);
  return {turn * samplesPerTurn, frame - turn * framesPerTurn};
}

}  // namespace nerolith::sound
