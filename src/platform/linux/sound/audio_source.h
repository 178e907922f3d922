// What a deck's decoding thread reads: one opened sound file as 44.1 kHz stereo.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace nerolith::sound {

/// The one sample rate of the mix and of the stream to the sound server.
inline constexpr int kSampleRate = 44100;

/// One moment of sound, full level at -1..1.
struct Frame {
  float left = 0;
  float right = 0;
};

/// A sound file, opened and ready to be read from its beginning. Belongs to one thread at a time.
class AudioSource {
 public:
  virtual ~AudioSource() = default;

  /// Length in frames of `kSampleRate`, > 0; right to within 0.1 s, fixed once opened.
  virtual std::int64_t totalFrames() const = 0;

  /// Fills `out` from its beginning and returns how many frames were written; fewer than asked only
  /// at the end of the sound (damage and a vanished medium count as its end), then 0.
  virtual std::size_t read(std::span<Frame> out) = 0;

  /// The next frame read is `frame` (0..totalFrames), exactly where the format allows.
  virtual void seek(std::int64_t frame) = 0;
};

}  // namespace nerolith::sound
