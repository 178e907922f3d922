#include "platform/linux/widgets/status_notifier_watch.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>

#include "platform/linux/widgets/quietly.h"

namespace nerolith::widgets {
namespace {

const QString kName = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString kPath = QStringLiteral("/StatusNotifierWatcher");
constexpr int kPatience = 2000;  // milliseconds

}  // namespace

StatusNotifierWatch::StatusNotifierWatch(std::function<void()> changed)
    : changed_(std::move(changed)) {
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) {
    known_ = true;
    return;
  }
  const auto* watcher =
      new QDBusServiceWatcher(kName, bus, QDBusServiceWatcher::WatchForOwnerChange, this);
  connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this, [this] { ask(); });
  for (const char* signal : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"})
    bus.connect({}, kPath, kName, QString::fromLatin1(signal), this, SLOT(ask()));
  ask();
}

void StatusNotifierWatch::ask() {
  QDBusMessage question = QDBusMessage::createMethodCall(
      kName, kPath, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
  question << kName << QStringLiteral("IsStatusNotifierHostRegistered");
  question.setAutoStartService(false);
  auto* call = new QDBusPendingCallWatcher(
      QDBusConnection::sessionBus().asyncCall(question, kPatience), this);
  connect(call, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* done) {
    done->deleteLater();
    const QDBusPendingReply<QDBusVariant> answer = *done;
    learn(answer.isValid() && answer.value().variant().toBool());
  });
}

void StatusNotifierWatch::learn(bool hostPresent) {
  if (known_ && hostPresent_ == hostPresent) return;
  known_ = true;
  hostPresent_ = hostPresent;
  quietly(changed_);
}

}  // namespace nerolith::widgets
