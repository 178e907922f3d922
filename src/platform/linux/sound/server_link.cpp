#include "platform/linux/sound/server_link.h"

#include <utility>

namespace nerolith::sound {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kTryAgainAfter{1000};

timeval timeIn(milliseconds delay) {
  timeval when{};
  pa_timeval_add(pa_gettimeofday(&when), static_cast<pa_usec_t>(delay.count()) * 1000);
  return when;
}

}  // namespace

pa_context* newPlayerContext(pa_mainloop_api* loop) {
  pa_proplist* about = pa_proplist_new();
  pa_proplist_sets(about, PA_PROP_APPLICATION_NAME, "Nerolith");
  pa_proplist_sets(about, PA_PROP_APPLICATION_ID, "velmarion");
  pa_proplist_sets(about, PA_PROP_APPLICATION_ICON_NAME, "velmarion");
  pa_context* context = pa_context_new_with_proplist(loop, "Nerolith", about);
  pa_proplist_free(about);
  return context;
}

void dontWait(pa_operation* asked) {
  if (asked != nullptr) pa_operation_unref(asked);
}

ServerLink::ServerLink(Owner& owner, std::unique_ptr<ServerLoop> loop)
    : owner_(owner), loop_(std::move(loop)) {}

ServerLink::~ServerLink() {
  const auto locked = lock();
  close();
}

void ServerLink::close() {
  dropContext();
  notLater();
}

bool ServerLink::ready() const {
  return context_ != nullptr && pa_context_get_state(context_) == PA_CONTEXT_READY;
}

void ServerLink::open() {
  context_ = newPlayerContext(loop_->api());
  pa_context_set_state_callback(
      context_, [](pa_context*, void* self) { static_cast<ServerLink*>(self)->contextChanged(); },
      this);
  // Starting a server ourselves would block, and is the desktop's business.
  if (pa_context_connect(context_, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0 &&
      context_ != nullptr) {
    lose();
  }
}

void ServerLink::contextChanged() {
  switch (pa_context_get_state(context_)) {
    case PA_CONTEXT_READY:
      refusal_.clear();
      owner_.linkReady();
      break;
    case PA_CONTEXT_FAILED:
    case PA_CONTEXT_TERMINATED:
      lose();
      break;
    default:
      break;
  }
  changed();
}

void ServerLink::lose() {
  refusal_ = pa_strerror(pa_context_errno(context_));
  owner_.linkLost();
  dropContext();
  later(kTryAgainAfter, [this] { open(); });
}

void ServerLink::dropContext() {
  if (context_ == nullptr) return;
  pa_context_set_state_callback(context_, nullptr, nullptr);
  pa_context_set_subscribe_callback(context_, nullptr, nullptr);
  pa_context_disconnect(context_);
  pa_context_unref(context_);
  context_ = nullptr;
}

bool ServerLink::waitUntil(const std::function<bool()>& done, milliseconds patience) {
  struct Bell {
    ServerLoop& loop;
    bool rung;
  } bell{*loop_, false};
  pa_mainloop_api* api = loop_->api();
  const timeval when = timeIn(patience);
  pa_time_event* event = api->time_new(
      api, &when,
      [](pa_mainloop_api*, pa_time_event*, const timeval*, void* data) {
        auto* late = static_cast<Bell*>(data);
        late->rung = true;
        late->loop.changed();
      },
      &bell);
  while (!done() && !bell.rung) loop_->wait();
  api->time_free(event);
  return done();
}

void ServerLink::later(milliseconds delay, std::function<void()> work) {
  work_ = std::move(work);
  pa_mainloop_api* api = loop_->api();
  const timeval when = timeIn(delay);
  if (alarm_ != nullptr) {
    api->time_restart(alarm_, &when);
    return;
  }
  alarm_ = api->time_new(
      api, &when,
      [](pa_mainloop_api*, pa_time_event*, const timeval*, void* self) {
        const auto due = std::exchange(static_cast<ServerLink*>(self)->work_, nullptr);
        if (due) due();
      },
      this);
}

void ServerLink::notLater() {
  work_ = nullptr;
  if (alarm_ == nullptr) return;
  loop_->api()->time_free(alarm_);
  alarm_ = nullptr;
}

}  // namespace nerolith::sound
