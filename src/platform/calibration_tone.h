// A sound from memory, played round and round beside the music.
#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "platform/wave_format.h"

namespace nerolith::platform {

/// Destroying it silences it at once.
class ToneBuffer {
 public:
  virtual ~ToneBuffer() = default;

  /// Fills the whole buffer, from its start, with the first of `samples`; more than fit are left
  /// out, fewer fail.
  virtual void write(std::span<const std::int16_t> samples) = 0;
  /// Heard until `stop`; at its end it begins again at its start. Goes on with what it plays when
  /// it plays already.
  virtual void playLooping() = 0;
  /// Nothing happens when it does not play.
  virtual void stop() = 0;
};

/// User-interface thread only; it outlives its buffers.
class CalibrationTone {
 public:
  virtual ~CalibrationTone() = default;

  /// A silent buffer of `bytes` bytes (even). Fails when there is no output device, or when it does
  /// not take the format (16-bit PCM).
  virtual std::unique_ptr<ToneBuffer> createBuffer(const WaveFormat& format,
                                                   std::int32_t bytes) = 0;
};

}  // namespace nerolith::platform
