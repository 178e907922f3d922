// The desktop's media controls by MPRIS 2.2 (specifications.freedesktop.org/mpris-spec).
#pragma once

#include <QDBusConnection>
#include <memory>

#include "platform/media_controls.h"

namespace nerolith::desktop {

class MprisPlayer;

/// On the message bus of the user's login, as org.mpris.MediaPlayer2.velmarion, or with the process
/// number behind that where another player has the name. Without a bus nothing happens. Needs a
/// running QtApplication, on its thread.
class MprisControls : public platform::MediaControls {
 public:
  MprisControls();
  ~MprisControls() override;

  void open(platform::MediaCommands& commands) override;
  void show(const platform::MediaStatus& status) override;
  void seeked(double position) override;
  void close() override;

 private:
  void takeName();

  platform::MediaStatus status_;
  QDBusConnection bus_;
  QString name_;
  std::unique_ptr<QObject> onBus_;
  MprisPlayer* player_ = nullptr;
};

}  // namespace nerolith::desktop
