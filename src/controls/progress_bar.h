// A bar that fills from the left.
#pragma once

#include "controls/control.h"

namespace nerolith::controls {

/// 0..100 percent, a real number. Setting it raises no event.
class ProgressBar : public Control {
 public:
  float value() const { return value_; }
  void setValue(float percent) { assign(value_, percent); }

 private:
  float value_ = 0;
};

}  // namespace nerolith::controls
