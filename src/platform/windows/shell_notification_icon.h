// The icon in the task bar's notification area.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>

#include "platform/notification_icon.h"

namespace nerolith::windows {

/// Hands the record over to Shell_NotifyIconA, its handles looked up by the two functions. A
/// picture box without a window gets no icon. The shell sends the icon's mouse to the picture box's
/// window with the record's callback message. A task bar that comes later, or once more, gets the
/// icon as soon as it is told of here.
class ShellNotificationIcon : public platform::NotificationIcon {
 public:
  using WindowOf = std::function<HWND(controls::PictureBox&)>;
  using IconOf = std::function<HICON(const controls::Form&)>;

  using TaskBarThere = std::function<bool()>;
  static bool systemTaskBarThere();

  ShellNotificationIcon(WindowOf windowOf, IconOf iconOf,
                        TaskBarThere taskBarThere = &systemTaskBarThere)
      : windowOf_(std::move(windowOf)),
        iconOf_(std::move(iconOf)),
        taskBarThere_(std::move(taskBarThere)) {}
  ShellNotificationIcon(const ShellNotificationIcon&) = delete;
  ShellNotificationIcon& operator=(const ShellNotificationIcon&) = delete;

  bool notify(platform::NotifyMessage message, const platform::NotifyRecord& record) override;
  /// The player pops the menu up by itself.
  void offerMenu(const controls::MenuItem&) override {}
  bool shown() const override;

  /// The task bar was made anew: it is told of the icon, if there is to be one.
  void taskBarCreated();
  /// Called now and then: a task bar that falls says nothing of it.
  void look();

 private:
  bool tell(DWORD message, const platform::NotifyRecord& record);
  bool add();
  void follow();

  WindowOf windowOf_;
  IconOf iconOf_;
  TaskBarThere taskBarThere_;
  std::optional<platform::NotifyRecord> wanted_;
  bool isAdded_ = false;   // by what the shell answered
  bool wasShown_ = false;  // when that was told last
};

}  // namespace nerolith::windows
