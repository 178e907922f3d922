// An output whose clock the test turns by hand.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <thread>
#include <vector>

#include "platform/linux/sound/deck_mixer.h"
#include "platform/linux/sound/sound_output.h"

namespace nerolith::sound_tests {

/// Keeps all that was mixed. What it pulls is heard `latency` frames later, as behind a real
/// server.
class ManualOutput : public sound::SoundOutput {
 public:
  static constexpr std::int64_t kLatency = 3969;  // 90 ms

  explicit ManualOutput(sound::DeckMixer& mixer) : mixer_(mixer) {}

  void prepare() override {}
  void wake() override {}
  std::int64_t heardFrames() const override {
    return std::max<std::int64_t>(0, static_cast<std::int64_t>(heard.size()) - kLatency);
  }
  std::string trouble() const override { return {}; }
  std::uint64_t underRuns() const override { return 0; }

  /// Mixes in the pieces a server asks for, never faster than the decoders can.
  void advance(double seconds) {
    const auto until =
        heard.size() + static_cast<std::size_t>(std::lround(seconds * sound::kSampleRate));
    while (heard.size() < until) {
      const std::size_t count = std::min<std::size_t>(882, until - heard.size());
      while (!mixer_.fed(count)) std::this_thread::yield();
      heard.resize(heard.size() + count);
      mixer_.mix(std::span<sound::Frame>(heard).last(count));
    }
  }

  std::vector<sound::Frame> heard;

 private:
  sound::DeckMixer& mixer_;
};

}  // namespace nerolith::sound_tests
