#include "platform/linux/desktop/sleep_ticket.h"

#include <QDBusPendingCallWatcher>
#include <utility>

namespace nerolith::desktop {

SleepTicket::SleepTicket(const QDBusConnection& bus, const QDBusMessage& question,
                         GiveBack giveBack, QObject& owner)
    : QObject(&owner), giveBack_(std::move(giveBack)) {
  auto* const watcher = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* done) {
    done->deleteLater();
    answered(done->reply());
  });
}

void SleepTicket::end() {
  ended_ = true;
  if (!answered_) return;
  if (granted_) giveBack_(*granted_);
  granted_.reset();
  deleteLater();
}

void SleepTicket::answered(const QDBusMessage& answer) {
  answered_ = true;
  if (answer.type() == QDBusMessage::ReplyMessage && !answer.arguments().isEmpty())
    granted_ = answer;
  if (ended_) end();
}

}  // namespace nerolith::desktop
