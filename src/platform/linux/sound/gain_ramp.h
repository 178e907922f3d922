// A level that moves in a straight line, so that no step of it is heard as a click.
#pragma once

#include <cstdint>
#include <span>

#include "platform/linux/sound/audio_source.h"

namespace nerolith::sound {

/// A volume step takes 20 ms: short enough to be heard at once, long enough not to click.
inline constexpr int kVolumeRampFrames = kSampleRate / 50;
/// Pausing, stopping, seeking and resuming fade over 5 ms.
inline constexpr int kEdgeRampFrames = kSampleRate / 200;

/// The factor for a volume in hundredths of a decibel; -10000 is silence, not a faint rest.
float gainOfVolume(std::int32_t hundredthsOfDecibel);

class GainRamp {
 public:
  explicit GainRamp(float level = 1) : level_(level), target_(level) {}

  void jumpTo(float level);
  void glideTo(float level, int frames);

  float target() const { return target_; }
  bool gliding() const { return left_ > 0; }

  /// Adds `in`, multiplied by the moving level, to the first frames of `out`.
  void addScaled(std::span<const Frame> in, std::span<Frame> out);
  /// The level of the next frame; moves one frame on.
  float next();

 private:
  float level_;
  float target_;
  float step_ = 0;
  int left_ = 0;
};

}  // namespace nerolith::sound
