// Adds the icon to the notification area and takes it out again.
#pragma once

#include <string>

#include "platform/notification_icon.h"

namespace nerolith::tray {

/// Both operations fill one record, which lives as long as the program; what deleting does not fill
/// is left as it was. What the area makes of it is not looked at: an icon that is there already, or
/// a desktop without an area, is no trouble.
class Tray_Functions {
 public:
  explicit Tray_Functions(platform::NotificationIcon& area) : area_(area) {}
  Tray_Functions(const Tray_Functions&) = delete;
  Tray_Functions& operator=(const Tray_Functions&) = delete;

  /// `tip` is cut to the 63 characters that its field holds besides the zero.
  void add(controls::PictureBox& picture, const std::string& tip, const controls::Form& form);
  void remove(controls::PictureBox& picture);

  const platform::NotifyRecord& record() const { return record_; }

 private:
  platform::NotificationIcon& area_;
  platform::NotifyRecord record_;
};

}  // namespace nerolith::tray
