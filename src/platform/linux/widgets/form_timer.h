// A timer of a form.
#pragma once

#include <QTimer>

#include "base/signal.h"
#include "controls/timer.h"

namespace nerolith::widgets {

/// Ticks precisely while the model is enabled; a tick that is due inside another one, because a
/// handler lets waiting events run, is left out.
class FormTimer {
 public:
  explicit FormTimer(controls::Timer& timer);

 private:
  void follow();
  void tick();

  controls::Timer& timer_;
  QTimer clock_;
  base::Subscription subscription_;
  bool ticking_ = false;
};

}  // namespace nerolith::widgets
