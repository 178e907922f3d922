// Turns decoded sound of any rate, layout and sample format into 44.1 kHz stereo.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/linux/sound/audio_source.h"
#include "platform/linux/sound/av_handles.h"

namespace nerolith::sound {

/// Takes what the decoder gives and hands out frames of the mix. Mono and stereo at 44.1 kHz are
/// copied directly; only the rest goes through the resampler.
class StereoShaper {
 public:
  /// Takes the samples `first`..`first + count` of `decoded`. What cannot be converted is silence.
  void push(const AVFrame& decoded, int first, int count);
  /// The sound ends here: gives out what the resampler still holds back.
  void finish();
  /// Forgets all, and drops the next `discard` frames that come out.
  void restart(std::int64_t discard);

  /// Moves waiting frames to `out`; returns how many.
  std::size_t pull(std::span<Frame> out);
  bool empty() const { return read_ == waiting_.size(); }

 private:
  bool prepareResampler(const AVFrame& decoded);
  void resample(const AVFrame& decoded, int first, int count);
  std::span<Frame> grow(std::size_t count);
  void dropDiscarded();

  std::vector<Frame> waiting_;
  std::size_t read_ = 0;
  std::int64_t discard_ = 0;
  ResamplerHandle resampler_;
  int rate_ = 0;
  int format_ = -1;
  int channels_ = 0;
};

}  // namespace nerolith::sound
