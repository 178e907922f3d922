// A tone nobody hears, but the trace.
#pragma once

#include <string>
#include <vector>

#include "platform/calibration_tone.h"
#include "platform/simulated/doorway.h"

namespace nerolith::platform::simulated {

/// Trace: "tone.create BYTES", "tone.write SAMPLES", "tone.play", "tone.stop", "tone.release" when
/// a buffer is destroyed. Buffers may not outlive this.
class SimulatedTone : public CalibrationTone {
 public:
  explicit SimulatedTone(Doorway& doorway) : doorway_(doorway) {}
  SimulatedTone(const SimulatedTone&) = delete;
  SimulatedTone& operator=(const SimulatedTone&) = delete;

  /// A machine without an output device.
  void setPresent(bool present) { present_ = present; }
  /// Whether a buffer plays.
  bool playing() const { return playing_ > 0; }
  /// What was last asked for and written.
  const WaveFormat& format() const { return format_; }
  const std::vector<std::int16_t>& samples() const { return samples_; }

  std::unique_ptr<ToneBuffer> createBuffer(const WaveFormat& format, std::int32_t bytes) override;

 private:
  class Buffer;

  Doorway& doorway_;
  WaveFormat format_;
  std::vector<std::int16_t> samples_;
  int playing_ = 0;
  bool present_ = true;
};

}  // namespace nerolith::platform::simulated
