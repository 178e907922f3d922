// One service's promise not to send the machine to sleep.
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <functional>
#include <optional>

namespace nerolith::desktop {

/// Asked for when it is made, and held until `end`, which gives it back: at once, or as soon as it
/// is granted. A service that is not there, or refuses, grants nothing. The answer is kept as long
/// as the ticket: what it carries may be the promise itself.
class SleepTicket : public QObject {
 public:
  using GiveBack = std::function<void(const QDBusMessage& granted)>;

  SleepTicket(const QDBusConnection& bus, const QDBusMessage& question, GiveBack giveBack,
              QObject& owner);

  /// The last call: the ticket deletes itself.
  void end();

 private:
  void answered(const QDBusMessage& answer);

  GiveBack giveBack_;
  std::optional<QDBusMessage> granted_;
  bool answered_ = false;
  bool ended_ = false;
};

}  // namespace nerolith::desktop
