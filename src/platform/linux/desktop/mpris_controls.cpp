#include "platform/linux/desktop/mpris_controls.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <utility>

#include "platform/linux/desktop/mpris_adaptors.h"

namespace nerolith::desktop {
namespace {

constexpr QLatin1String kConnection("velmarion-media");
constexpr QLatin1String kPath("/org/mpris/MediaPlayer2");
constexpr QLatin1String kName("org.mpris.MediaPlayer2.velmarion");

}  // namespace

MprisControls::MprisControls() : bus_(kConnection) {}

MprisControls::~MprisControls() { MprisControls::close(); }

void MprisControls::open(platform::MediaCommands& commands) {
  if (onBus_) return;
  bus_ = QDBusConnection::connectToBus(QDBusConnection::SessionBus, kConnection);
  if (!bus_.isConnected()) return;
  onBus_ = std::make_unique<QObject>();
  new MprisRoot(*onBus_, commands);
  player_ = new MprisPlayer(*onBus_, commands, status_);
  bus_.registerObject(kPath, onBus_.get());
  takeName();
}

void MprisControls::takeName() {
  name_ = kName;
  if (bus_.registerService(name_)) return;
  name_ += QStringLiteral(".instance%1").arg(QCoreApplication::applicationPid());
  bus_.registerService(name_);
}

void MprisControls::show(const platform::MediaStatus& status) {
  platform::MediaStatus before = std::exchange(status_, status);
  before.position = status.position;  // players ask for that one
  if (!player_ || before == status) return;
  const QVariantMap changed = changedProperties(before, status);
  if (changed.isEmpty()) return;
  QDBusMessage signal =
      QDBusMessage::createSignal(kPath, QStringLiteral("org.freedesktop.DBus.Properties"),
                                 QStringLiteral("PropertiesChanged"));
  signal << QStringLiteral("org.mpris.MediaPlayer2.Player") << changed << QStringList();
  bus_.send(signal);
}

void MprisControls::seeked(double position) {
  if (player_) Q_EMIT player_->Seeked(microseconds(position));
}

void MprisControls::close() {
  if (!onBus_) return;
  bus_.unregisterService(name_);
  bus_.unregisterObject(kPath);
  player_ = nullptr;
  onBus_.release()->deleteLater();  // the call that led here may be one of its own
  bus_ = QDBusConnection(kConnection);
  QDBusConnection::disconnectFromBus(kConnection);
}

}  // namespace nerolith::desktop
