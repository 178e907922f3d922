// The event queue of a simulated machine.
#pragma once

#include "platform/event_queue.h"
#include "platform/simulated/doorway.h"
#include "platform/simulated/timeline.h"

namespace nerolith::platform::simulated {

class SimulatedEvents : public EventQueue {
 public:
  SimulatedEvents(Timeline& timeline, Doorway& doorway) : timeline_(timeline), doorway_(doorway) {}

  void runWaitingEvents() override { timeline_.yield(); }
  void post(std::function<void()> call) override { timeline_.post(std::move(call)); }
  /// Traced as "events.quit".
  void quit() override {
    doorway_.note({Door::Events, "events", "quit"});
    timeline_.end();
  }

 private:
  Timeline& timeline_;
  Doorway& doorway_;
};

}  // namespace nerolith::platform::simulated
