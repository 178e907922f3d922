// The test tone by which the user sets the recording level.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/calibration_tone.h"

namespace nerolith::recording {

inline constexpr std::int32_t kToneBytes = 352800;

/// Samples 0 to 176400 of the tone: 490 periods of 360 samples, 122.5 Hz at 44100 Hz, amplitude
/// 17000, after a first sample of 0. One more than the buffer takes.
std::vector<std::int16_t> calibrationSamples();

/// Holds the tone while it is heard. User-interface thread only; the door outlives it.
class Calibration {
 public:
  explicit Calibration(platform::CalibrationTone& door) : door_(door) {}

  /// Makes the tone's buffer, silent yet; one that was there before ends.
  void prepare();
  /// Fills the buffer and plays it round and round; `prepare` came before.
  void play();
  /// Nothing happens when no tone plays. Failures pass: what cannot be stopped is given up.
  void stop();

 private:
  platform::CalibrationTone& door_;
  std::unique_ptr<platform::ToneBuffer> buffer_;
};

}  // namespace nerolith::recording
