#include "platform/linux/sound/pulse_capture.h"

#include <chrono>

#include "platform/failure.h"
#include "platform/linux/sound/looping_buffer.h"
#include "platform/linux/sound/sample_format.h"

namespace nerolith::sound {
namespace {

using platform::CaptureBuffer;
using platform::CaptureCursors;
using platform::CaptureDevice;
using platform::Failure;
using platform::WaveFormat;

constexpr std::chrono::milliseconds kPatience{2000};

class PulseCaptureBuffer : public CaptureBuffer, private MonitorStream::Listener {
 public:
  PulseCaptureBuffer(PulseCapture& capture, const pa_sample_spec& format, std::size_t bytes)
      : capture_(capture), sound_(bytes), stream_(*this, format) {
    stream_.connect(kPatience);
  }
  ~PulseCaptureBuffer() override { capture_.ended(stream_); }
  PulseCaptureBuffer(const PulseCaptureBuffer&) = delete;
  PulseCaptureBuffer& operator=(const PulseCaptureBuffer&) = delete;

  void startLooping() override {
    stream_.run();
    capture_.begun(stream_);
  }
  void stop() override {
    stream_.rest();
    capture_.ended(stream_);
  }
  CaptureCursors cursors() const override {
    stream_.deliver();
    const auto arrived = static_cast<std::int32_t>(sound_.position());
    return {arrived, arrived};
  }
  void read(std::int32_t start, std::int32_t bytes,
            std::span<std::int16_t> samples) const override {
    const auto size = static_cast<std::int32_t>(sound_.size());
    const auto room = std::as_writable_bytes(samples);
    if (start < 0 || start >= size || bytes < 0 || bytes > size ||
        static_cast<std::size_t>(bytes) > room.size()) {
      throw Failure("The recorded sound has no such place.");
    }
    sound_.read(static_cast<std::size_t>(start), room.first(static_cast<std::size_t>(bytes)));
  }

 private:
  void soundArrived(std::span<const std::byte> sound) override { sound_.append(sound); }
  void holeArrived(std::size_t bytes) override { sound_.appendSilence(bytes); }

  PulseCapture& capture_;
  LoopingBuffer sound_;
  mutable MonitorStream stream_;  // what has arrived was there before it was asked for
};

class DefaultMonitor : public CaptureDevice {
 public:
  explicit DefaultMonitor(PulseCapture& capture) : capture_(capture) {}

  std::unique_ptr<CaptureBuffer> createBuffer(const WaveFormat& format,
                                              std::int32_t bytes) override {
    return std::make_unique<PulseCaptureBuffer>(capture_, pcmFormat(format, bytes),
                                                static_cast<std::size_t>(bytes));
  }

 private:
  PulseCapture& capture_;
};

/// For asking only whether there is a device.
class Deaf : public MonitorStream::Listener {
  void soundArrived(std::span<const std::byte>) override {}
  void holeArrived(std::size_t) override {}
};

}  // namespace

std::unique_ptr<CaptureDevice> PulseCapture::openDefaultDevice() {
  Deaf nobody;
  MonitorStream(nobody, {PA_SAMPLE_S16LE, 44100, 2}).connect(kPatience);
  return std::make_unique<DefaultMonitor>(*this);
}

std::string PulseCapture::captureTrouble() const {
  const std::string reason = running_ == nullptr ? std::string() : running_->trouble();
  return reason.empty() ? reason : "Nothing can be recorded: " + reason;
}

void PulseCapture::ended(const MonitorStream& stream) {
  if (running_ == &stream) running_ = nullptr;
}

}  // namespace nerolith::sound
