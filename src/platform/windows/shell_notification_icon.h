// The icon in the task bar's notification area.
#pragma once

#include <windows.h>

#include <functional>

#include "platform/notification_icon.h"

namespace nerolith::windows {

/// Hands the record over to Shell_NotifyIconA, its handles looked up by the two functions. A
/// picture box without a window gets no icon. The shell sends the icon's mouse to the picture box's
/// window with the record's callback message.
class ShellNotificationIcon : public platform::NotificationIcon {
 public:
  using WindowOf = std::function<HWND(controls::PictureBox&)>;
  using IconOf = std::function<HICON(const controls::Form&)>;

  ShellNotificationIcon(WindowOf windowOf, IconOf iconOf)
      : windowOf_(std::move(windowOf)), iconOf_(std::move(iconOf)) {}
  ShellNotificationIcon(const ShellNotificationIcon&) = delete;
  ShellNotificationIcon& operator=(const ShellNotificationIcon&) = delete;

  bool notify(platform::NotifyMessage message, const platform::NotifyRecord& record) override;
  /// The player pops the menu up by itself.
  void offerMenu(const controls::MenuItem&) override {}
  bool shown() const override;

  /// The task bar was made anew: the icon is added once more, if it was there.
  void taskBarCreated();

 private:
  bool tell(platform::NotifyMessage message, const platform::NotifyRecord& record);

  WindowOf windowOf_;
  IconOf iconOf_;
  platform::NotifyRecord added_;
  bool isAdded_ = false;
};

}  // namespace nerolith::windows
