// Those who may send a machine to sleep, as tests see them.
#pragma once

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>
#include <QObject>
#include <QString>
#include <QStringList>
#include <array>

namespace nerolith::desktop {

/// org.freedesktop.login1: a lock is the writing end of a pipe, and is free once nobody has it
/// open.
class FakeLogind : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.login1.Manager")

 public:
  FakeLogind() = default;
  ~FakeLogind() override {
    if (pipe_[0] >= 0) close(pipe_[0]);
  }

  QStringList asked;
  bool held() const {
    pollfd end{pipe_[0], POLLIN, 0};
    return pipe_[0] >= 0 && (poll(&end, 1, 0) == 0 || !(end.revents & POLLHUP));
  }

 public Q_SLOTS:  // NOLINT(readability-redundant-access-specifiers): the toolkit's own
  QDBusUnixFileDescriptor Inhibit(const QString& what, const QString& who, const QString& why,
                                  const QString& mode) {
    asked << QStringList{what, who, why, mode}.join(", ");
    if (pipe2(pipe_.data(), O_CLOEXEC) != 0) return {};
    QDBusUnixFileDescriptor lock;
    lock.giveFileDescriptor(pipe_[1]);
    return lock;
  }

 private:
  std::array<int, 2> pipe_{-1, -1};
};

/// org.gnome.SessionManager; answers late when told so.
class FakeGnome : public QObject, protected QDBusContext {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.gnome.SessionManager")

 public:
  QStringList log;
  bool late = false;

  void answer() { connection().send(waiting_.createReply(42U)); }

 public Q_SLOTS:  // NOLINT(readability-redundant-access-specifiers): the toolkit's own
  uint Inhibit(const QString& application, uint window, const QString& why, uint flags) {
    log << QStringLiteral("hold %1, %2, %3, %4").arg(application).arg(window).arg(why).arg(flags);
    if (late) {
      setDelayedReply(true);
      waiting_ = message();
      bus_ = connection().name();
    }
    return 42;
  }
  void Uninhibit(uint cookie) { log << QStringLiteral("release %1").arg(cookie); }

 private:
  QDBusConnection connection() const {
    return bus_.isEmpty() ? QDBusContext::connection() : QDBusConnection(bus_);
  }

  QDBusMessage waiting_;
  QString bus_;
};

/// org.freedesktop.PowerManagement.
class FakePowerManagement : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.PowerManagement.Inhibit")

 public:
  QStringList log;

 public Q_SLOTS:  // NOLINT(readability-redundant-access-specifiers): the toolkit's own
  uint Inhibit(const QString& application, const QString& why) {
    log << QStringLiteral("hold %1, %2").arg(application, why);
    return 7;
  }
  void UnInhibit(uint cookie) { log << QStringLiteral("release %1").arg(cookie); }
};

}  // namespace nerolith::desktop
