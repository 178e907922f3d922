#include "platform/linux/sound/pulse_output.h"

#include <algorithm>

#include "platform/linux/sound/server_link.h"
#include "platform/linux/sound/urgent_thread.h"

namespace nerolith::sound {
namespace {

/// Low enough that a volume step is heard within 100 ms, with twice the time that a busy machine
/// lets a thread wait.
constexpr std::uint32_t kLatencyMs = 90;
constexpr std::uint32_t kMostLatencyMs = 110;
/// What an under-run adds to it.
constexpr std::uint32_t kMoreLatencyMs = 10;
/// How much the server asks for at a time. Each piece wakes this program twice: to be filled, and
/// when the server gives back its memory.
constexpr std::uint32_t kRequestMs = 30;
/// Silence put out behind the last sound before the stream stands still: all of it was heard then.
constexpr std::int64_t kSilenceBeforeRest = kSampleRate * 3 / 10;

constexpr std::uint64_t kLookEvery = 1000000;  // microseconds
constexpr int kPatientLooks = 2;

std::uint32_t bytesOf(std::uint32_t milliseconds) {
  return milliseconds * kSampleRate / 1000 * static_cast<std::uint32_t>(sizeof(Frame));
}

}  // namespace

PulseOutput::PulseOutput(DeckMixer& mixer) : mixer_(mixer), latencyMs_(kLatencyMs) {}

PulseOutput::~PulseOutput() {
  if (loop_ == nullptr) return;
  {
    const LoopLock locked(loop_);
    dropConnection();
    if (timer_ != nullptr) pa_threaded_mainloop_get_api(loop_)->time_free(timer_);
  }
  pa_threaded_mainloop_stop(loop_);
  pa_threaded_mainloop_free(loop_);
}

void PulseOutput::prepare() {
  if (loop_ == nullptr) {
    loop_ = pa_threaded_mainloop_new();
    pa_threaded_mainloop_set_name(loop_, "sound output");
    pa_threaded_mainloop_start(loop_);
  }
  const LoopLock locked(loop_);
  if (context_ == nullptr) connect();
}

void PulseOutput::wake() {
  prepare();
  const LoopLock locked(loop_);
  if (ready() && !playing_) play();
}

std::int64_t PulseOutput::heardFrames() const {
  if (loop_ == nullptr) return 0;
  const LoopLock locked(loop_);
  if (!ready() || !playing_) return pulled_;
  pa_usec_t latency = 0;
  int negative = 0;
  // Before the server's first answer to the question, what was asked of it is the best guess.
  if (pa_stream_get_latency(stream_, &latency, &negative) < 0)
    latency = pa_usec_t{latencyMs_} * 1000;
  if (negative != 0) latency = 0;
  return pulled_ - static_cast<std::int64_t>(latency * kSampleRate / 1000000);
}

std::string PulseOutput::trouble() const {
  const std::lock_guard lock(troubleMutex_);
  return trouble_;
}

std::uint64_t PulseOutput::underRuns() const {
  if (loop_ == nullptr) return 0;
  const LoopLock locked(loop_);
  return underRuns_;
}

void PulseOutput::connect() {
  context_ = newPlayerContext(pa_threaded_mainloop_get_api(loop_));
  pa_context_set_state_callback(
      context_, [](pa_context*, void* self) { static_cast<PulseOutput*>(self)->contextChanged(); },
      this);
  // A server may take the connection and never answer.
  idleLooks_ = 0;
  lookAgainIn(kLookEvery);
  // Starting a server ourselves would block, and is the desktop's business.
  if (pa_context_connect(context_, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0 &&
      context_ != nullptr) {
    lose(pa_strerror(pa_context_errno(context_)));
  }
}

void PulseOutput::contextChanged() {
  switch (pa_context_get_state(context_)) {
    case PA_CONTEXT_READY:
      // Told on the thread that will hand out the sound.
      makeThisThreadUrgent();
      openStream();
      break;
    case PA_CONTEXT_FAILED:
    case PA_CONTEXT_TERMINATED:
      lose(pa_strerror(pa_context_errno(context_)));
      break;
    default:
      break;
  }
}

pa_buffer_attr PulseOutput::bufferWish() const {
  constexpr auto kServersChoice = static_cast<std::uint32_t>(-1);
  pa_buffer_attr wish{};
  wish.maxlength = kServersChoice;
  wish.tlength = bytesOf(latencyMs_);
  wish.prebuf = bytesOf(kRequestMs);
  wish.minreq = bytesOf(kRequestMs);
  wish.fragsize = kServersChoice;
  return wish;
}

void PulseOutput::openStream() {
  const pa_sample_spec format{PA_SAMPLE_FLOAT32NE, kSampleRate, 2};
  pa_proplist* about = pa_proplist_new();
  pa_proplist_sets(about, PA_PROP_MEDIA_ROLE, "music");
  pa_proplist_sets(about, PA_PROP_MEDIA_NAME, "Music");
  stream_ = pa_stream_new_with_proplist(context_, "Music", &format, nullptr, about);
  pa_proplist_free(about);
  if (stream_ == nullptr) {
    lose(pa_strerror(pa_context_errno(context_)));
    return;
  }
  pa_stream_set_state_callback(
      stream_,
      [](pa_stream* stream, void* self) {
        auto* output = static_cast<PulseOutput*>(self);
        // A stream that the server ended keeps its callback, and is told of the end once more.
        if (stream == output->stream_) output->streamChanged();
      },
      this);
  pa_stream_set_write_callback(
      stream_,
      [](pa_stream*, std::size_t bytes, void* self) {
        auto* output = static_cast<PulseOutput*>(self);
        if (output->playing_) output->pull(bytes);
      },
      this);
  pa_stream_set_underflow_callback(
      stream_, [](pa_stream*, void* self) { static_cast<PulseOutput*>(self)->ranDry(); }, this);
  const pa_buffer_attr wish = bufferWish();
  const auto flags =
      static_cast<pa_stream_flags_t>(PA_STREAM_START_CORKED | PA_STREAM_ADJUST_LATENCY |
                                     PA_STREAM_AUTO_TIMING_UPDATE | PA_STREAM_INTERPOLATE_TIMING);
  if (pa_stream_connect_playback(stream_, nullptr, &wish, flags, nullptr, nullptr) < 0) {
    lose(pa_strerror(pa_context_errno(context_)));
  }
}

void PulseOutput::streamChanged() {
  switch (pa_stream_get_state(stream_)) {
    case PA_STREAM_READY:
      sayTrouble({});
      if (mixer_.active()) play();
      break;
    case PA_STREAM_FAILED:
    case PA_STREAM_TERMINATED:
      lose(pa_strerror(pa_context_errno(context_)));
      break;
    default:
      break;
  }
}

void PulseOutput::lose(const std::string& reason) {
  // As short as that, so that all of it is seen in the smallest window.
  sayTrouble("No sound: no sound server (" + reason + ")");
  dropConnection();
  lookAgainIn(kLookEvery);
}

void PulseOutput::dropConnection() {
  playing_ = false;
  if (stream_ != nullptr) {
    pa_stream_set_state_callback(stream_, nullptr, nullptr);
    pa_stream_set_write_callback(stream_, nullptr, nullptr);
    pa_stream_set_underflow_callback(stream_, nullptr, nullptr);
    pa_stream_disconnect(stream_);
    pa_stream_unref(stream_);
    stream_ = nullptr;
  }
  if (context_ != nullptr) {
    pa_context_set_state_callback(context_, nullptr, nullptr);
    pa_context_disconnect(context_);
    pa_context_unref(context_);
    context_ = nullptr;
  }
}

bool PulseOutput::ready() const {
  return stream_ != nullptr && pa_stream_get_state(stream_) == PA_STREAM_READY;
}

void PulseOutput::play() {
  playing_ = true;
  silentFrames_ = 0;
  idleLooks_ = 0;
  const std::size_t room = pa_stream_writable_size(stream_);
  if (room != static_cast<std::size_t>(-1) && room > 0) pull(room);
  dontWait(pa_stream_cork(stream_, 0, nullptr, nullptr));
  lookAgainIn(kLookEvery);
}

void PulseOutput::standStill() {
  playing_ = false;
  dontWait(pa_stream_cork(stream_, 1, nullptr, nullptr));
  // The silence still waiting would delay the next song's first sound.
  dontWait(pa_stream_flush(stream_, nullptr, nullptr));
}

void PulseOutput::pull(std::size_t bytes) {
  while (bytes >= sizeof(Frame)) {
    void* room = nullptr;
    std::size_t size = bytes;
    if (pa_stream_begin_write(stream_, &room, &size) < 0 || room == nullptr) return;
    const std::size_t frames = std::min(size, bytes) / sizeof(Frame);
    const bool sound = mixer_.mix({static_cast<Frame*>(room), frames});
    pa_stream_write(stream_, room, frames * sizeof(Frame), nullptr, 0, PA_SEEK_RELATIVE);
    pulled_ += static_cast<std::int64_t>(frames);
    silentFrames_ = sound ? 0 : silentFrames_ + static_cast<std::int64_t>(frames);
    bytes -= std::min(bytes, frames * sizeof(Frame));
    if (frames == 0) return;
  }
  if (silentFrames_ > kSilenceBeforeRest) standStill();
}

void PulseOutput::ranDry() {
  if (!playing_) return;
  ++underRuns_;
  if (latencyMs_ >= kMostLatencyMs) return;
  latencyMs_ = std::min(latencyMs_ + kMoreLatencyMs, kMostLatencyMs);
  const pa_buffer_attr wish = bufferWish();
  dontWait(pa_stream_set_buffer_attr(stream_, &wish, nullptr, nullptr));
}

/// Once a second while something should be heard or a connection is made: a lost server is tried
/// again, and one that is there but takes no sound is told to the user.
void PulseOutput::look() {
  if (context_ == nullptr) {
    connect();
    return;
  }
  if (ready() && !playing_) return;
  idleLooks_ = pulled_ == pulledAtLastLook_ ? idleLooks_ + 1 : 0;
  pulledAtLastLook_ = pulled_;
  if (idleLooks_ >= kPatientLooks) {
    sayTrouble("No sound: the sound server takes none");
  } else if (ready()) {
    sayTrouble({});
  }
  lookAgainIn(kLookEvery);
}

void PulseOutput::lookAgainIn(std::uint64_t microseconds) {
  pa_mainloop_api* api = pa_threaded_mainloop_get_api(loop_);
  timeval when{};
  pa_timeval_add(pa_gettimeofday(&when), microseconds);
  if (timer_ != nullptr) {
    api->time_restart(timer_, &when);
    return;
  }
  timer_ = api->time_new(
      api, &when,
      [](pa_mainloop_api*, pa_time_event*, const timeval*, void* self) {
        static_cast<PulseOutput*>(self)->look();
      },
      this);
}

void PulseOutput::sayTrouble(const std::string& sentence) {
  const std::lock_guard lock(troubleMutex_);
  trouble_ = sentence;
}

}  // namespace nerolith::sound
