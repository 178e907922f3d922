#include "platform/linux/sound/pulse_tone.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <string>
#include <vector>

#include "platform/failure.h"
#include "platform/linux/sound/sample_format.h"
#include "platform/linux/sound/server_link.h"

namespace nerolith::sound {
namespace {

using platform::Failure;
using std::chrono::milliseconds;

/// Handed out ahead: gone soon when the tone is switched off, and no work to speak of.
constexpr pa_usec_t kAheadMicroseconds = 200000;
constexpr milliseconds kTryAgainAfter{500};
constexpr milliseconds kPatience{2000};

/// Everything below `private` runs with the link's lock held.
class PulseToneBuffer : public platform::ToneBuffer, private ServerLink::Owner {
 public:
  PulseToneBuffer(const pa_sample_spec& format, std::size_t bytes)
      : format_(format), sound_(bytes), link_(*this, std::make_unique<ThreadedLoop>("tone")) {}
  ~PulseToneBuffer() override {
    const auto locked = link_.lock();
    dropStream();
    link_.close();
  }
  PulseToneBuffer(const PulseToneBuffer&) = delete;
  PulseToneBuffer& operator=(const PulseToneBuffer&) = delete;

  void connect();

  void write(std::span<const std::int16_t> samples) override;
  void playLooping() override;
  void stop() override;

 private:
  void linkReady() override { openStream(); }
  void linkLost() override { dropStream(); }

  void openStream();
  void streamChanged();
  void streamLost();
  void dropStream();
  void handOut(std::size_t bytes);
  bool ready() const;

  const pa_sample_spec format_;
  std::vector<std::byte> sound_;
  std::size_t next_ = 0;  // byte to be handed out next
  bool playing_ = false;
  std::string trouble_;
  pa_stream* stream_ = nullptr;
  ServerLink link_;
};

void PulseToneBuffer::connect() {
  const auto locked = link_.lock();
  link_.open();
  const bool answered = link_.waitUntil(
      [this] { return ready() || link_.refused() || !trouble_.empty(); }, kPatience);
  if (ready()) return;
  std::string reason = link_.refused() ? link_.refusal() : trouble_;
  if (!answered) reason = "the sound server does not answer";
  throw Failure("The tone cannot be played: " + reason + ".");
}

void PulseToneBuffer::write(std::span<const std::int16_t> samples) {
  const auto locked = link_.lock();
  const auto bytes = std::as_bytes(samples);
  if (bytes.size() < sound_.size()) throw Failure("The tone is shorter than its buffer.");
  std::copy_n(bytes.data(), sound_.size(), sound_.data());
}

void PulseToneBuffer::playLooping() {
  const auto locked = link_.lock();
  if (playing_) return;
  playing_ = true;
  if (!ready()) return;
  handOut(pa_stream_writable_size(stream_));
  dontWait(pa_stream_cork(stream_, 0, nullptr, nullptr));
}

void PulseToneBuffer::stop() {
  const auto locked = link_.lock();
  if (!playing_) return;
  playing_ = false;
  if (!ready()) return;
  dontWait(pa_stream_cork(stream_, 1, nullptr, nullptr));
  dontWait(pa_stream_flush(stream_, nullptr, nullptr));
}

void PulseToneBuffer::openStream() {
  dropStream();
  if (!link_.ready()) return;
  stream_ = pa_stream_new(link_.context(), "Calibration tone", &format_, nullptr);
  if (stream_ == nullptr) {
    streamLost();
    return;
  }
  pa_stream_set_state_callback(
      stream_,
      [](pa_stream* stream, void* self) {
        auto* tone = static_cast<PulseToneBuffer*>(self);
        // A stream that the server ended keeps its callback, and is told of the end once more.
        if (stream == tone->stream_) tone->streamChanged();
      },
      this);
  pa_stream_set_write_callback(
      stream_,
      [](pa_stream*, std::size_t bytes, void* self) {
        auto* tone = static_cast<PulseToneBuffer*>(self);
        if (tone->playing_) tone->handOut(bytes);
      },
      this);
  constexpr auto kServersChoice = static_cast<std::uint32_t>(-1);
  const auto ahead = static_cast<std::uint32_t>(pa_usec_to_bytes(kAheadMicroseconds, &format_));
  const pa_buffer_attr wish{kServersChoice, ahead, kServersChoice, kServersChoice, kServersChoice};
  const auto flags =
      static_cast<pa_stream_flags_t>(PA_STREAM_START_CORKED | PA_STREAM_ADJUST_LATENCY);
  if (pa_stream_connect_playback(stream_, nullptr, &wish, flags, nullptr, nullptr) < 0 &&
      stream_ != nullptr) {
    streamLost();
  }
}

void PulseToneBuffer::streamChanged() {
  switch (pa_stream_get_state(stream_)) {
    case PA_STREAM_READY:
      trouble_.clear();
      if (playing_) dontWait(pa_stream_cork(stream_, 0, nullptr, nullptr));
      link_.changed();
      break;
    case PA_STREAM_FAILED:
    case PA_STREAM_TERMINATED:
      streamLost();
      break;
    default:
      break;
  }
}

void PulseToneBuffer::streamLost() {
  trouble_ = pa_strerror(pa_context_errno(link_.context()));
  dropStream();
  link_.later(kTryAgainAfter, [this] { openStream(); });
  link_.changed();
}

void PulseToneBuffer::dropStream() {
  if (stream_ == nullptr) return;
  pa_stream_set_state_callback(stream_, nullptr, nullptr);
  pa_stream_set_write_callback(stream_, nullptr, nullptr);
  pa_stream_disconnect(stream_);
  pa_stream_unref(stream_);
  stream_ = nullptr;
}

void PulseToneBuffer::handOut(std::size_t bytes) {
  if (bytes == static_cast<std::size_t>(-1)) return;
  while (bytes > 0) {
    const std::size_t piece = std::min(bytes, sound_.size() - next_);
    if (pa_stream_write(stream_, sound_.data() + next_, piece, nullptr, 0, PA_SEEK_RELATIVE) < 0) {
      return;
    }
    next_ = (next_ + piece) % sound_.size();
    bytes -= piece;
  }
}

bool PulseToneBuffer::ready() const {
  return stream_ != nullptr && pa_stream_get_state(stream_) == PA_STREAM_READY;
}

}  // namespace

std::unique_ptr<platform::ToneBuffer> PulseTone::createBuffer(const platform::WaveFormat& format,
                                                              std::int32_t bytes) {
  auto buffer =
      std::make_unique<PulseToneBuffer>(pcmFormat(format, bytes), static_cast<std::size_t>(bytes));
  buffer->connect();
  return buffer;
}

}  // namespace nerolith::sound
