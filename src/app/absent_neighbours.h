// A main window without the parts around the player.
#pragma once

#include "app/neighbours.h"

namespace nerolith::app {

/// No notification area: the main window minimises instead of hiding.
class NoNotificationIcon final : public NotificationIcon {
 public:
  void add(const std::string&) override {}
  void remove() override {}
  bool present() const override { return false; }
};

}  // namespace nerolith::app
