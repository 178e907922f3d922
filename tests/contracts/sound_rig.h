// The machine that the contracts of capture and tone are held against.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "platform/calibration_tone.h"
#include "platform/sound_capture.h"

namespace nerolith::contracts {

inline constexpr platform::WaveFormat kStereo{1, 2, 44100, 176400, 4, 16, 0};
inline constexpr platform::WaveFormat kMono{1, 1, 44100, 88200, 2, 16, 0};

/// A machine to hold the contracts against. A backend's test derives a default-constructible rig.
class SoundRig {
 public:
  virtual ~SoundRig() = default;

  /// Empty, or why this machine has no sound; the tests then report themselves skipped.
  virtual std::string unavailable() const { return {}; }
  virtual platform::SoundCapture& capture() = 0;
  virtual platform::CalibrationTone& tone() = 0;

  /// From now on the machine plays a sound of this peak, 0..32767; 0: silence.
  virtual void play(int peak) = 0;
  /// The peak of what the machine plays now, 0..32767.
  virtual int heard() = 0;

  /// Lets so many seconds pass.
  virtual void pass(double seconds) = 0;
  /// How far, in seconds, a running cursor may be off.
  virtual double slack() const = 0;

  /// Whether `done()` comes true within so many seconds.
  template <class Done>
  bool within(double seconds, Done done) {
    for (double waited = 0; !done(); waited += 0.02) {
      if (waited > seconds) return false;
      pass(0.02);
    }
    return true;
  }
};

/// Half a period up, half a period down: the peak is the level itself.
inline std::vector<std::int16_t> squareWave(std::size_t samples, int peak) {
  std::vector<std::int16_t> wave(samples);
  for (std::size_t i = 0; i < samples; ++i) {
    wave[i] = static_cast<std::int16_t>(i / 147 % 2 == 0 ? peak : -peak);  // 150 Hz
  }
  return wave;
}

inline int peakOf(std::span<const std::int16_t> samples) {
  int peak = 0;
  for (const int sample : samples) peak = std::max(peak, std::abs(sample));
  return peak;
}

/// The peak of the newest so many seconds in a buffer of `size` bytes of stereo sound.
inline int newestPeak(const platform::CaptureBuffer& buffer, std::int32_t size, double seconds) {
  const std::int32_t bytes = static_cast<std::int32_t>(seconds * 44100) * 4;
  const std::int32_t start = (buffer.cursors().read - bytes + size) % size;
  std::vector<std::int16_t> samples(static_cast<std::size_t>(bytes) / 2);
  buffer.read(start, bytes, samples);
  return peakOf(samples);
}

/// A rig that plays through its tone and listens through its capture: what a real machine does.
class RealSoundRig : public SoundRig {
 public:
  void play(int peak) override {
    if (!playing_) playing_ = tone().createBuffer(kMono, kSecond);
    playing_->write(squareWave(kSecond / 2, peak));
    playing_->playLooping();
  }
  int heard() override {
    if (!listening_) {
      device_ = capture().openDefaultDevice();
      listening_ = device_->createBuffer(kStereo, 4 * kSecond);
      listening_->startLooping();
    }
    return newestPeak(*listening_, 4 * kSecond, 0.05);
  }

 protected:
  /// For a derived rig's destructor: nothing of this may outlive its doors.
  void fallSilent() {
    playing_.reset();
    listening_.reset();
    device_.reset();
  }

 private:
  static constexpr std::int32_t kSecond = 88200;

  std::unique_ptr<platform::ToneBuffer> playing_;
  std::unique_ptr<platform::CaptureDevice> device_;
  std::unique_ptr<platform::CaptureBuffer> listening_;
};

}  // namespace nerolith::contracts
