#include "platform/linux/widgets/qt_event_queue.h"

#include <QCoreApplication>

#include "platform/linux/widgets/quietly.h"

namespace nerolith::widgets {

QtEventQueue::QtEventQueue() {
  idle_.setInterval(0);
  QObject::connect(&idle_, &QTimer::timeout, &idle_, [this] { runNext(); });
}

void QtEventQueue::runWaitingEvents() { QCoreApplication::processEvents(); }

void QtEventQueue::post(std::function<void()> call) {
  calls_.push_back(std::move(call));
  idle_.start();
}

void QtEventQueue::runNext() {
  if (calls_.empty()) {
    idle_.stop();
    return;
  }
  const std::function<void()> call = std::move(calls_.front());
  calls_.pop_front();
  // Started anew, as the toolkit rings no timer inside its own ringing: a call may open a message
  // box, and those behind it shall run meanwhile.
  if (calls_.empty())
    idle_.stop();
  else
    idle_.start();
  quietly(call);
}

void QtEventQueue::quit() { QCoreApplication::quit(); }

}  // namespace nerolith::widgets
