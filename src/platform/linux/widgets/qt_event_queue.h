// The event queue of the Linux program.
#pragma once

#include <QTimer>
#include <deque>

#include "platform/event_queue.h"

namespace nerolith::widgets {

/// Posted calls run one at a time whenever nothing else waits: input and painting come first.
class QtEventQueue : public platform::EventQueue {
 public:
  QtEventQueue();

  void runWaitingEvents() override;
  void post(std::function<void()> call) override;
  void quit() override;

 private:
  void runNext();

  std::deque<std::function<void()>> calls_;
  QTimer idle_;
};

}  // namespace nerolith::widgets
