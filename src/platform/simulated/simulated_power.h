// A machine that would fall asleep if it were one.
#pragma once

#include "platform/power_request.h"
#include "platform/simulated/doorway.h"

namespace nerolith::platform::simulated {

/// Trace: "power.hold playing" or "power.hold recording", "power.release".
class SimulatedPower : public PowerRequest {
 public:
  explicit SimulatedPower(Doorway& doorway) : doorway_(doorway) {}

  bool held() const { return held_; }

  void hold(Why why) override {
    doorway_.note({Door::Power, "power", "hold", why == Why::Playing ? "playing" : "recording"});
    held_ = true;
  }
  void release() override {
    doorway_.note({Door::Power, "power", "release"});
    held_ = false;
  }

 private:
  Doorway& doorway_;
  bool held_ = false;
};

}  // namespace nerolith::platform::simulated
