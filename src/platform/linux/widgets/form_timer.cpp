#include "platform/linux/widgets/form_timer.h"

#include "platform/linux/widgets/quietly.h"

namespace nerolith::widgets {

FormTimer::FormTimer(controls::Timer& timer) : timer_(timer) {
  clock_.setTimerType(Qt::PreciseTimer);
  clock_.setInterval(timer_.interval());
  QObject::connect(&clock_, &QTimer::timeout, &clock_, [this] { tick(); });
  subscription_ = timer_.changed.subscribe([this] { follow(); });
  follow();
}

void FormTimer::follow() {
  if (timer_.enabled())
    clock_.start();
  else
    clock_.stop();
}

void FormTimer::tick() {
  if (ticking_) return;
  ticking_ = true;
  quietly([this] { timer_.tick.raise(); });
  ticking_ = false;
}

}  // namespace nerolith::widgets
