// A notification area nobody looks at, but the trace.
#pragma once

#include <string>

#include "platform/notification_icon.h"
#include "platform/simulated/doorway.h"

namespace nerolith::platform::simulated {

/// Trace: "tray.add TIP", "tray.delete".
class SimulatedIcon : public NotificationIcon {
 public:
  explicit SimulatedIcon(Doorway& doorway) : doorway_(doorway) {}
  SimulatedIcon(const SimulatedIcon&) = delete;
  SimulatedIcon& operator=(const SimulatedIcon&) = delete;

  /// A desktop whose notification area comes and goes; it is there at first.
  void setAreaPresent(bool present);
  /// The user's mouse over the icon: the number of the message. Nothing where no icon is shown.
  void mouse(int message);
  /// What the area was told last.
  const NotifyRecord& lastRecord() const { return last_; }
  /// The menu that a desktop would show by itself; none: null.
  const controls::MenuItem* menu() const { return menu_; }

  bool notify(NotifyMessage message, const NotifyRecord& record) override;
  void offerMenu(const controls::MenuItem& menu) override { menu_ = &menu; }
  bool shown() const override { return added_ && areaPresent_; }

 private:
  bool change(bool added);

  Doorway& doorway_;
  NotifyRecord last_;
  const controls::MenuItem* menu_ = nullptr;
  bool added_ = false;
  bool areaPresent_ = true;
};

}  // namespace nerolith::platform::simulated
