#include "platform/linux/desktop/sleep_inhibitor.h"

#include <QVariant>

#include "platform/linux/desktop/sleep_ticket.h"

namespace nerolith::desktop {
namespace {

/// GNOME's flag: the machine must not be suspended. The screen may go dark.
constexpr uint kGnomeSuspend = 4;

struct Service {
  const char* name;
  const char* path;
  const char* interface;
};

constexpr Service kLogind{"org.freedesktop.login1", "/org/freedesktop/login1",
                          "org.freedesktop.login1.Manager"};
constexpr Service kGnome{"org.gnome.SessionManager", "/org/gnome/SessionManager",
                         "org.gnome.SessionManager"};
constexpr Service kFreedesktop{"org.freedesktop.PowerManagement",
                               "/org/freedesktop/PowerManagement/Inhibit",
                               "org.freedesktop.PowerManagement.Inhibit"};

QDBusMessage callOf(const Service& at, const char* method, const QVariantList& arguments) {
  QDBusMessage call =
      QDBusMessage::createMethodCall(QLatin1String(at.name), QLatin1String(at.path),
                                     QLatin1String(at.interface), QLatin1String(method));
  call.setAutoStartService(false);
  call.setArguments(arguments);
  return call;
}

QString inWords(platform::PowerRequest::Why why) {
  return why == platform::PowerRequest::Why::Recording ? QStringLiteral("Recording")
                                                       : QStringLiteral("Playing music");
}

/// A desktop hands out a number that names the hold, and takes it back with that.
SleepTicket::GiveBack givingBack(const QDBusConnection& bus, const Service& at,
                                 const char* method) {
  return [bus, at, method](const QDBusMessage& granted) {
    bus.send(callOf(at, method, {granted.arguments().first()}));
  };
}

}  // namespace

SleepInhibitor::SleepInhibitor() = default;
SleepInhibitor::~SleepInhibitor() { SleepInhibitor::release(); }

void SleepInhibitor::hold(Why why) {
  const QString who = QStringLiteral("Nerolith");
  const QString reason = inWords(why);

  // The lock is the descriptor in the answer: it ends with the ticket.
  const QDBusConnection system = QDBusConnection::systemBus();
  if (system.isConnected())
    held_.push_back(new SleepTicket(
        system,
        callOf(kLogind, "Inhibit",
               {QStringLiteral("sleep:idle"), who, reason, QStringLiteral("block")}),
        [](const QDBusMessage&) {}, owner_));

  const QDBusConnection login = QDBusConnection::sessionBus();
  if (!login.isConnected()) return;
  held_.push_back(new SleepTicket(
      login, callOf(kGnome, "Inhibit", {QStringLiteral("velmarion"), 0U, reason, kGnomeSuspend}),
      givingBack(login, kGnome, "Uninhibit"), owner_));
  held_.push_back(new SleepTicket(login, callOf(kFreedesktop, "Inhibit", {who, reason}),
                                  givingBack(login, kFreedesktop, "UnInhibit"), owner_));
}

void SleepInhibitor::release() {
  for (SleepTicket* ticket : held_) ticket->end();
  held_.clear();
}

}  // namespace nerolith::desktop
