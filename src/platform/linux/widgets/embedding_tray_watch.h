// Looks for a tray that embeds the windows of icons.
#pragma once

#include <QAbstractNativeEventFilter>
#include <cstdint>
#include <functional>

struct xcb_connection_t;

namespace nerolith::widgets {

/// Follows the owner of the selection _NET_SYSTEM_TRAY_Sn of the X screen, as freedesktop.org's
/// System Tray Protocol has it. Where the display is no X server, there is no such tray.
class EmbeddingTrayWatch : public QAbstractNativeEventFilter {
 public:
  /// `changed` is called when a tray comes or goes.
  explicit EmbeddingTrayWatch(std::function<void()> changed);
  ~EmbeddingTrayWatch() override;
  EmbeddingTrayWatch(const EmbeddingTrayWatch&) = delete;
  EmbeddingTrayWatch& operator=(const EmbeddingTrayWatch&) = delete;

  bool trayPresent() const { return owner_ != 0; }

  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

 private:
  std::uint32_t atom(const QByteArray& name) const;
  std::uint32_t readOwner() const;
  void look();

  std::function<void()> changed_;
  xcb_connection_t* server_ = nullptr;
  std::uint32_t tray_ = 0;     // the selection's atom
  std::uint32_t manager_ = 0;  // the atom of the message that announces a tray
  std::uint32_t owner_ = 0;
};

}  // namespace nerolith::widgets
