// The icon of the Linux program in the desktop's tray.
#pragma once

#include <QMenu>
#include <QSystemTrayIcon>
#include <memory>
#include <optional>

#include "platform/linux/widgets/embedding_tray_watch.h"
#include "platform/linux/widgets/status_notifier_watch.h"
#include "platform/notification_icon.h"

namespace nerolith::widgets {

/// A status notifier item where the desktop has a host for it, an icon embedded in the tray where
/// it has only that. A desktop that has neither gets the icon as soon as it has one of them; which
/// of the two it is stays so for the run of the program, as the toolkit looks but once.
///
/// A press on the icon reaches the record's picture box as the message that the shell of Windows
/// would send: left button down, left double click, right button down, middle button down. A host
/// of status notifier items shows the offered menu by itself instead, for the right button.
class QtNotificationIcon : public platform::NotificationIcon {
 public:
  QtNotificationIcon() = default;
  QtNotificationIcon(const QtNotificationIcon&) = delete;
  QtNotificationIcon& operator=(const QtNotificationIcon&) = delete;

  /// Adding looks for the desktop's tray the first time, and succeeds even if there is none yet.
  bool notify(platform::NotifyMessage message, const platform::NotifyRecord& record) override;
  void offerMenu(const controls::MenuItem& menu) override { menu_ = &menu; }
  bool shown() const override;

 private:
  struct Later {
    void operator()(QObject* object) const { object->deleteLater(); }
  };

  bool add(const platform::NotifyRecord& record);
  bool remove();
  bool trayThere() const;
  void trayChanged();
  void showIcon();
  void pressed(QSystemTrayIcon::ActivationReason reason);

  const controls::MenuItem* menu_ = nullptr;
  std::optional<platform::NotifyRecord> record_;
  std::optional<bool> asItem_;  // decided: as a status notifier item, or embedded
  bool there_ = false;          // a tray that takes it, when it was last looked for
  std::unique_ptr<StatusNotifierWatch> items_;
  std::unique_ptr<EmbeddingTrayWatch> embedding_;
  // May be taken away by what its own menu does.
  std::unique_ptr<QMenu, Later> exported_;
  std::unique_ptr<QSystemTrayIcon, Later> icon_;
};

}  // namespace nerolith::widgets
