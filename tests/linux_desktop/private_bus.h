// A message bus of a test's own, as the bus of the system and as that of the user's login.
#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <stdexcept>

namespace nerolith::desktop {

/// Made before anything connects to a bus; the environment names it from then on. Ends with its
/// owner.
class PrivateBus {
 public:
  PrivateBus() {
    const QByteArray address = "unix:path=" + folder_.path().toUtf8() + "/bus";
    server_.setStandardErrorFile(QProcess::nullDevice());
    // The system's own services are none of the test's.
    server_.start("dbus-daemon", {"--session", "--nofork", "--nopidfile", "--print-address",
                                  "--address=" + QString::fromUtf8(address)});
    if (!server_.waitForReadyRead(10000)) throw std::runtime_error("no message bus comes up");
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", address);
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
  }
  ~PrivateBus() {
    server_.kill();
    server_.waitForFinished();
  }
  PrivateBus(const PrivateBus&) = delete;
  PrivateBus& operator=(const PrivateBus&) = delete;

 private:
  QTemporaryDir folder_;
  QProcess server_;
};

/// Runs events until `reached` is true; false when it never is.
template <typename Condition>
bool waitUntil(Condition reached, int longestMilliseconds = 5000) {
  QElapsedTimer since;
  since.start();
  while (!reached()) {
    if (since.elapsed() > longestMilliseconds) return false;
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  return true;
}

}  // namespace nerolith::desktop
