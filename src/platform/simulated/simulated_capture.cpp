#include "platform/simulated/simulated_capture.h"

#include <algorithm>

namespace nerolith::platform::simulated {

class SimulatedCapture::Buffer : public CaptureBuffer {
 public:
  Buffer(SimulatedCapture& capture, const WaveFormat& format, std::int32_t bytes)
      : capture_(capture), format_(format), bytes_(bytes) {}
  ~Buffer() override {
    rest();
    note("release");
  }

  void startLooping() override {
    capture_.doorway_.act({Door::Capture, "capture", "start"});
    if (running_) return;
    running_ = true;
    ++capture_.running_;
    began_ = capture_.present();
  }
  void stop() override {
    capture_.doorway_.act({Door::Capture, "capture", "stop"});
    rest();
  }
  CaptureCursors cursors() const override {
    capture_.doorway_.look({Door::Capture, "capture", "cursors"});
    const auto place = static_cast<std::int32_t>(arrived() * format_.blockAlign % bytes_);
    return {place, place};
  }
  void read(std::int32_t start, std::int32_t bytes,
            std::span<std::int16_t> samples) const override {
    capture_.doorway_.look(
        {Door::Capture, "capture", "read", std::to_string(start) + " " + std::to_string(bytes)});
    if (start < 0 || start >= bytes_ || bytes < 0 || bytes > bytes_ ||
        samples.size() < static_cast<std::size_t>(bytes) / 2)
      capture_.doorway_.refuse("The capture buffer has no such place.");
    const auto wanted = samples.first(static_cast<std::size_t>(bytes) / 2);
    std::fill(wanted.begin(), wanted.end(), std::int16_t{0});
    if (!capture_.sound_) return;
    const std::int64_t size = bytes_ / 2;
    const std::int64_t end = arrived() * format_.channels;
    // The last sample that was written to the first place; each further one, until that of the end.
    std::int64_t sample = end - 1 - ((end - 1 - start / 2) % size + size) % size;
    for (std::int16_t& place : wanted) {
      if (sample >= end) sample -= size;
      if (sample >= 0) place = capture_.sound_(sample);
      ++sample;
    }
  }

 private:
  /// Samples of all channels together that arrived since the buffer was made.
  std::int64_t arrived() const {
    const auto length =
        captured_ + (running_ ? capture_.present() - began_ : Timeline::Duration{0});
    return length.count() * format_.samplesPerSecond / 1'000'000'000;
  }
  void rest() {
    if (!running_) return;
    captured_ += capture_.present() - began_;
    running_ = false;
    --capture_.running_;
  }
  void note(std::string_view verb) { capture_.doorway_.note({Door::Capture, "capture", verb}); }

  SimulatedCapture& capture_;
  WaveFormat format_;
  std::int32_t bytes_;
  bool running_ = false;
  Timeline::Duration began_{0};
  Timeline::Duration captured_{0};
};

class SimulatedCapture::Device : public CaptureDevice {
 public:
  explicit Device(SimulatedCapture& capture) : capture_(capture) {}

  std::unique_ptr<CaptureBuffer> createBuffer(const WaveFormat& format,
                                              std::int32_t bytes) override {
    const std::string size = std::to_string(bytes);
    capture_.doorway_.act({Door::Capture, "capture", "create", size});
    if (!capture_.deliverable_)
      capture_.doorway_.refuse("The capture device cannot deliver this format.");
    return std::make_unique<Buffer>(capture_, format, bytes);
  }

 private:
  SimulatedCapture& capture_;
};

void SimulatedCapture::goAway(const std::string& trouble) {
  if (trouble_.empty()) wentAway_ = timeline_.now();
  trouble_ = trouble;
}

void SimulatedCapture::comeBack() {
  if (trouble_.empty()) return;
  away_ += timeline_.now() - wentAway_;
  trouble_.clear();
}

std::unique_ptr<CaptureDevice> SimulatedCapture::openDefaultDevice() {
  doorway_.act({Door::Capture, "capture", "open"});
  if (!present_) doorway_.refuse("There is no device that captures sound.");
  return std::make_unique<Device>(*this);
}

Timeline::Duration SimulatedCapture::present() const {
  return (trouble_.empty() ? timeline_.now() : wentAway_) - away_;
}

}  // namespace nerolith::platform::simulated
