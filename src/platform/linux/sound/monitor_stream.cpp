#include "platform/linux/sound/monitor_stream.h"

#include "platform/failure.h"

namespace nerolith::sound {
namespace {

using platform::Failure;
using std::chrono::milliseconds;

/// Asked of the server: a piece every 75 ms at the latest, so that each look at the level, ten
/// times a second, finds one even when it comes early. Each piece costs; more of them tell nobody
/// more.
constexpr pa_usec_t kPieceMicroseconds = 75000;
constexpr milliseconds kTryAgainAfter{500};
constexpr milliseconds kStartPatience{500};

}  // namespace

MonitorStream::MonitorStream(Listener& listener, const pa_sample_spec& format)
    : listener_(listener), format_(format), link_(*this, std::make_unique<PolledLoop>()) {}

MonitorStream::~MonitorStream() {
  dropStream();
  stopLooking();
  link_.close();
}

void MonitorStream::connect(milliseconds patience) {
  link_.open();
  const auto decided = [this] { return streamReady() || link_.refused() || !trouble_.empty(); };
  link_.waitUntil(decided, patience);
  if (!streamReady()) throw Failure("What is heard cannot be recorded: " + reason() + ".");
}

void MonitorStream::run() {
  running_ = true;
  if (!streamReady()) return;
  pa_operation* asked = pa_stream_cork(
      stream_, 0, [](pa_stream*, int, void* link) { static_cast<ServerLink*>(link)->changed(); },
      &link_);
  if (asked == nullptr) return;
  const auto told = [asked] { return pa_operation_get_state(asked) != PA_OPERATION_RUNNING; };
  if (!link_.waitUntil(told, kStartPatience)) pa_operation_cancel(asked);
  pa_operation_unref(asked);
}

void MonitorStream::rest() {
  running_ = false;
  if (streamReady()) dontWait(pa_stream_cork(stream_, 1, nullptr, nullptr));
  link_.work();
}

void MonitorStream::deliver() { link_.work(); }

std::string MonitorStream::trouble() {
  link_.work();
  return streamReady() ? std::string() : reason();
}

void MonitorStream::linkReady() {
  pa_context_set_subscribe_callback(
      link_.context(),
      [](pa_context*, pa_subscription_event_type_t, std::uint32_t, void* self) {
        static_cast<MonitorStream*>(self)->look();
      },
      this);
  // Told whenever another device becomes the default one.
  dontWait(pa_context_subscribe(link_.context(), PA_SUBSCRIPTION_MASK_SERVER, nullptr, nullptr));
  look();
}

void MonitorStream::linkLost() {
  dropStream();
  stopLooking();
}

void MonitorStream::look() {
  stopLooking();
  if (!link_.ready()) return;
  question_ = pa_context_get_server_info(
      link_.context(),
      [](pa_context*, const pa_server_info* server, void* self) {
        static_cast<MonitorStream*>(self)->deviceTold(server);
      },
      this);
}

void MonitorStream::deviceTold(const pa_server_info* server) {
  stopLooking();
  if (server == nullptr || server->default_sink_name == nullptr) {
    giveUpLooking("there is no sound output device");
    return;
  }
  question_ = pa_context_get_sink_info_by_name(
      link_.context(), server->default_sink_name,
      [](pa_context*, const pa_sink_info* device, int last, void* self) {
        if (last > 0) return;
        const bool known = last == 0 && device != nullptr;
        static_cast<MonitorStream*>(self)->monitorTold(known ? device->monitor_source_name
                                                             : nullptr);
      },
      this);
}

void MonitorStream::monitorTold(const char* name) {
  stopLooking();
  if (name == nullptr) {
    giveUpLooking("the sound output device has no monitor");
  } else if (stream_ == nullptr || monitor_ != name) {
    openStream(name);
  }
}

void MonitorStream::giveUpLooking(const char* reason) {
  trouble_ = reason;
  dropStream();
  link_.later(kTryAgainAfter, [this] { look(); });
  link_.changed();
}

void MonitorStream::openStream(const std::string& monitor) {
  dropStream();
  monitor_ = monitor;
  stream_ = pa_stream_new(link_.context(), "What is heard", &format_, nullptr);
  if (stream_ == nullptr) {
    giveUpLooking(pa_strerror(pa_context_errno(link_.context())));
    return;
  }
  pa_stream_set_state_callback(
      stream_,
      [](pa_stream* stream, void* self) {
        auto* monitor = static_cast<MonitorStream*>(self);
        // A stream that the server ended keeps its callback, and is told of the end once more.
        if (stream == monitor->stream_) monitor->streamChanged();
      },
      this);
  pa_stream_set_read_callback(
      stream_,
      [](pa_stream*, std::size_t, void* self) { static_cast<MonitorStream*>(self)->fetch(); },
      this);
  constexpr auto kServersChoice = static_cast<std::uint32_t>(-1);
  const pa_buffer_attr wish{
      kServersChoice, kServersChoice, kServersChoice, kServersChoice,
      static_cast<std::uint32_t>(pa_usec_to_bytes(kPieceMicroseconds, &format_))};
  const int corked = running_ ? 0 : PA_STREAM_START_CORKED;
  const auto flags =
      static_cast<pa_stream_flags_t>(PA_STREAM_ADJUST_LATENCY | PA_STREAM_DONT_MOVE | corked);
  if (pa_stream_connect_record(stream_, monitor_.c_str(), &wish, flags) < 0 && stream_ != nullptr) {
    giveUpLooking(pa_strerror(pa_context_errno(link_.context())));
  }
}

void MonitorStream::streamChanged() {
  switch (pa_stream_get_state(stream_)) {
    case PA_STREAM_READY:
      trouble_.clear();
      link_.changed();
      break;
    case PA_STREAM_FAILED:
    case PA_STREAM_TERMINATED:
      giveUpLooking(pa_strerror(pa_context_errno(link_.context())));
      break;
    default:
      break;
  }
}

void MonitorStream::dropStream() {
  if (stream_ == nullptr) return;
  pa_stream_set_state_callback(stream_, nullptr, nullptr);
  pa_stream_set_read_callback(stream_, nullptr, nullptr);
  pa_stream_disconnect(stream_);
  pa_stream_unref(stream_);
  stream_ = nullptr;
}

void MonitorStream::fetch() {
  while (pa_stream_readable_size(stream_) > 0) {
    const void* sound = nullptr;
    std::size_t bytes = 0;
    if (pa_stream_peek(stream_, &sound, &bytes) < 0 || bytes == 0) return;
    if (running_ && sound != nullptr) {
      listener_.soundArrived({static_cast<const std::byte*>(sound), bytes});
    } else if (running_) {
      listener_.holeArrived(bytes);
    }
    pa_stream_drop(stream_);
  }
}

bool MonitorStream::streamReady() const {
  return stream_ != nullptr && pa_stream_get_state(stream_) == PA_STREAM_READY;
}

std::string MonitorStream::reason() const {
  if (link_.refused()) return "no sound server (" + link_.refusal() + ")";
  return trouble_.empty() ? "the sound server does not answer" : trouble_;
}

void MonitorStream::stopLooking() {
  if (question_ == nullptr) return;
  pa_operation_cancel(question_);
  pa_operation_unref(question_);
  question_ = nullptr;
}

}  // namespace nerolith::sound
