// Keeps a Linux machine from falling asleep by itself.
#pragma once

#include <QObject>
#include <vector>

#include "platform/power_request.h"

namespace nerolith::desktop {

class SleepTicket;

/// Asks all who may send the machine to sleep, as none of them knows of the others' timers: logind
/// (an inhibitor lock for sleep and idle, on the system's bus), and on the bus of the user's login
/// the desktop: org.gnome.SessionManager (GNOME, Cinnamon, MATE) and
/// org.freedesktop.PowerManagement (Xfce, KDE, LXQt). Who is not there is passed over; nobody is
/// started by being asked, and no answer is waited for. What was granted ends with the process.
/// Needs a running QtApplication, on its thread.
class SleepInhibitor : public platform::PowerRequest {
 public:
  SleepInhibitor();
  ~SleepInhibitor() override;

  void hold(Why why) override;
  void release() override;

 private:
  QObject owner_;  // of tickets, also of those that are given back once they are granted
  std::vector<SleepTicket*> held_;
};

}  // namespace nerolith::desktop
