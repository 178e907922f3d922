// Shows forms as the platform's windows.
#pragma once

#include "controls/form.h"

namespace nerolith::platform {

class WindowHost {
 public:
  virtual ~WindowHost() = default;

  /// Renders `form` from now on: follows its properties, raises its events, runs its timers. The
  /// form must outlive the host or be taken back with `remove`.
  virtual void add(controls::Form& form) = 0;
  virtual void remove(controls::Form& form) = 0;
};

}  // namespace nerolith::platform
