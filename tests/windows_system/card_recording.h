// What the machine's recording device hears; on a desktop for tests that is what it plays.
#pragma once

#include <windows.h>
// After windows.h, which it needs.
#include <mmsystem.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <stdexcept>
#include <vector>

namespace nerolith::windows {

/// Records from construction on, so many seconds at most. 44.1 kHz, mono.
class CardRecording {
 public:
  static constexpr int kRate = 44100;

  explicit CardRecording(double seconds) : samples_(static_cast<std::size_t>(seconds * kRate)) {
    WAVEFORMATEX format{WAVE_FORMAT_PCM, 1, kRate, 2 * kRate, 2, 16, 0};
    header_.lpData = reinterpret_cast<char*>(samples_.data());
    header_.dwBufferLength = static_cast<DWORD>(samples_.size() * sizeof samples_[0]);
    if (waveInOpen(&device_, WAVE_MAPPER, &format, 0, 0, CALLBACK_NULL) != MMSYSERR_NOERROR ||
        waveInPrepareHeader(device_, &header_, sizeof header_) != MMSYSERR_NOERROR ||
        waveInAddBuffer(device_, &header_, sizeof header_) != MMSYSERR_NOERROR ||
        waveInStart(device_) != MMSYSERR_NOERROR)
      throw std::runtime_error("no recording");
  }
  ~CardRecording() {
    waveInReset(device_);
    waveInUnprepareHeader(device_, &header_, sizeof header_);
    waveInClose(device_);
  }
  CardRecording(const CardRecording&) = delete;
  CardRecording& operator=(const CardRecording&) = delete;

  /// Ends the recording and hands out what was heard.
  std::vector<std::int16_t> take() {
    waveInReset(device_);
    samples_.resize(header_.dwBytesRecorded / sizeof samples_[0]);
    return samples_;
  }

 private:
  std::vector<std::int16_t> samples_;
  HWAVEIN device_ = nullptr;
  WAVEHDR header_{};
};

/// The highest sample from one second to another, as a part of full scale. A gap, as a busy machine
/// makes now and then, does not change it.
inline double peakBetween(const std::vector<std::int16_t>& samples, double from, double to) {
  int peak = 0;
  for (auto i = static_cast<std::size_t>(from * CardRecording::kRate);
       i < samples.size() && i < static_cast<std::size_t>(to * CardRecording::kRate); ++i)
    peak = std::max(peak, std::abs(static_cast<int>(samples[i])));
  return peak / 32768.0;
}

/// The second at which the first sound is heard; -1: none.
inline double firstSound(const std::vector<std::int16_t>& samples) {
  for (std::size_t i = 0; i < samples.size(); ++i)
    if (std::abs(samples[i]) > 300) return static_cast<double>(i) / CardRecording::kRate;
  return -1;
}

}  // namespace nerolith::windows
