#include "platform/simulated/simulated_tone.h"

namespace nerolith::platform::simulated {

class SimulatedTone::Buffer : public ToneBuffer {
 public:
  Buffer(SimulatedTone& tone, std::int32_t bytes) : tone_(tone), bytes_(bytes) {}
  ~Buffer() override {
    rest();
    tone_.doorway_.note({Door::Tone, "tone", "release"});
  }

  void write(std::span<const std::int16_t> samples) override {
    const auto room = static_cast<std::size_t>(bytes_) / 2;
    tone_.doorway_.act({Door::Tone, "tone", "write", std::to_string(room)});
    if (samples.size() < room) tone_.doorway_.refuse("The tone is too short for its buffer.");
    const auto fitting = samples.first(room);
    tone_.samples_.assign(fitting.begin(), fitting.end());
  }
  void playLooping() override {
    tone_.doorway_.act({Door::Tone, "tone", "play"});
    if (!playing_) ++tone_.playing_;
    playing_ = true;
  }
  void stop() override {
    tone_.doorway_.act({Door::Tone, "tone", "stop"});
    rest();
  }

 private:
  void rest() {
    if (playing_) --tone_.playing_;
    playing_ = false;
  }

  SimulatedTone& tone_;
  std::int32_t bytes_;
  bool playing_ = false;
};

std::unique_ptr<ToneBuffer> SimulatedTone::createBuffer(const WaveFormat& format,
                                                        std::int32_t bytes) {
  doorway_.act({Door::Tone, "tone", "create", std::to_string(bytes)});
  if (!present_) doorway_.refuse("There is no device that plays sound.");
  format_ = format;
  return std::make_unique<Buffer>(*this, bytes);
}

}  // namespace nerolith::platform::simulated
