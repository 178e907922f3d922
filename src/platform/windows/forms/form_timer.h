// Runs one timer of a form.
#pragma once

#include "controls/timer.h"
#include "platform/windows/forms/window.h"

namespace nerolith::windows_forms {

/// A window that nobody sees gets the ticks, so that they come inside message boxes and menus as
/// well. Follows the timer's enabled state and ends with itself; the timer outlives it.
class FormTimer : public Window {
 public:
  explicit FormTimer(controls::Timer& timer);

 protected:
  std::optional<LRESULT> onMessage(UINT message, WPARAM first, LPARAM second) override;

 private:
  void follow();
  void tick();

  controls::Timer& timer_;
  base::Subscription subscription_;
  bool ticking_ = false;
};

}  // namespace nerolith::windows_forms
