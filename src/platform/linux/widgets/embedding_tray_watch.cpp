#include "platform/linux/widgets/embedding_tray_watch.h"

#include <xcb/xcb.h>

#include <QCoreApplication>
#include <QGuiApplication>
#include <cstdlib>
#include <memory>
#include <utility>

#include "platform/linux/widgets/quietly.h"

namespace nerolith::widgets {
namespace {

struct Free {
  void operator()(void* reply) const { std::free(reply); }
};
template <typename T>
using Reply = std::unique_ptr<T, Free>;

int screenNumber() {
  char* host = nullptr;
  int display = 0;
  int screen = 0;
  if (xcb_parse_display(nullptr, &host, &display, &screen) == 0) return 0;
  std::free(host);
  return screen;
}

}  // namespace

EmbeddingTrayWatch::EmbeddingTrayWatch(std::function<void()> changed)
    : changed_(std::move(changed)) {
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  server_ = x11 ? x11->connection() : nullptr;
  if (!server_) return;
  tray_ = atom("_NET_SYSTEM_TRAY_S" + QByteArray::number(screenNumber()));
  manager_ = atom("MANAGER");
  QCoreApplication::instance()->installNativeEventFilter(this);
  look();
}

EmbeddingTrayWatch::~EmbeddingTrayWatch() {
  if (QCoreApplication* application = QCoreApplication::instance())
    application->removeNativeEventFilter(this);
}

std::uint32_t EmbeddingTrayWatch::atom(const QByteArray& name) const {
  const auto asked = xcb_intern_atom(server_, 0, static_cast<std::uint16_t>(name.size()), name);
  const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(server_, asked, nullptr));
  return reply ? reply->atom : 0;
}

std::uint32_t EmbeddingTrayWatch::readOwner() const {
  const auto asked = xcb_get_selection_owner(server_, tray_);
  const Reply<xcb_get_selection_owner_reply_t> reply(
      xcb_get_selection_owner_reply(server_, asked, nullptr));
  return reply ? reply->owner : 0;
}

void EmbeddingTrayWatch::look() {
  std::uint32_t owner = readOwner();
  if (owner != 0) {
    // The toolkit asks for the same of the same window: neither takes anything from the other.
    const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(server_, owner, XCB_CW_EVENT_MASK, &events);
    owner = readOwner();  // it may have gone before its end could be heard of
  }
  if (std::exchange(owner_, owner) != owner) quietly(changed_);
}

// The toolkit has asked for the events of the root window, where a new tray announces itself.
bool EmbeddingTrayWatch::nativeEventFilter(const QByteArray& type, void* message, qintptr*) {
  if (type != "xcb_generic_event_t") return false;
  const auto& event = *static_cast<const xcb_generic_event_t*>(message);
  const int kind = event.response_type & 0x7f;
  if (kind == XCB_CLIENT_MESSAGE) {
    const auto& told = *static_cast<const xcb_client_message_event_t*>(message);
    if (told.type == manager_ && told.data.data32[1] == tray_) look();
  } else if (kind == XCB_DESTROY_NOTIFY && owner_ != 0) {
    if (static_cast<const xcb_destroy_notify_event_t*>(message)->window == owner_) look();
  }
  return false;
}

}  // namespace nerolith::widgets
