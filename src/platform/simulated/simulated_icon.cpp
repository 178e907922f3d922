#include "platform/simulated/simulated_icon.h"

namespace nerolith::platform::simulated {

void SimulatedIcon::setAreaPresent(bool present) {
  areaPresent_ = present;
  shownChanged.raise();
}

void SimulatedIcon::mouse(int message) {
  if (shown()) last_.window->userMouseMove(message, 0);
}

bool SimulatedIcon::notify(NotifyMessage message, const NotifyRecord& record) {
  const bool adding = message == NotifyMessage::Add;
  last_ = record;
  if (adding)
    doorway_.act({Door::Icon, "tray", "add", record.tip.data()});
  else
    doorway_.act({Door::Icon, "tray", "delete"});
  return change(adding);
}

bool SimulatedIcon::change(bool added) {
  if (added_ == added) return false;
  added_ = added;
  shownChanged.raise();
  return true;
}

}  // namespace nerolith::platform::simulated
