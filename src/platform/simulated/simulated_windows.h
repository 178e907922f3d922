// Windows that nobody sees: their timers run, and one control has the focus.
#pragma once

#include <memory>
#include <vector>

#include "platform/simulated/doorway.h"
#include "platform/simulated/timeline.h"
#include "platform/window_host.h"

namespace nerolith::platform::simulated {

/// Hosts forms as a renderer does, apart from pixels: runs their timers; moves the focus when a
/// control of the form's layout or overlays (or the form) asks for it, at once, unless that control
/// is hidden or disabled; raises `activate`, as a posted event, when a form is shown or brought to
/// the front. User input is a test's call of the models' `user...` functions.
///
/// Trace: "windows.add CAPTION", "windows.remove CAPTION", "windows.forward CAPTION",
/// "windows.popUp CAPTION".
class SimulatedWindows : public WindowHost {
 public:
  SimulatedWindows(Timeline& timeline, Doorway& doorway);
  ~SimulatedWindows() override;

  void add(controls::Form& form) override;
  void remove(controls::Form& form) override;

  /// The control that has the focus; none: null.
  const controls::Control* focused() const { return focused_; }
  /// Gives the focus as a click of the user would.
  void focus(controls::Control& control);
  /// The menu that was popped up last; none: null.
  const controls::MenuItem* lastMenu() const { return lastMenu_; }

 private:
  struct Hosted;

  void activateLater(controls::Form& form);
  void follow(Hosted& hosted, controls::Control& control);
  void follow(Hosted& hosted, const controls::PlacedControl& placed);
  void follow(Hosted& hosted, const controls::Box& box);

  Timeline& timeline_;
  Doorway& doorway_;
  std::vector<std::unique_ptr<Hosted>> hosted_;
  controls::Control* focused_ = nullptr;
  const controls::MenuItem* lastMenu_ = nullptr;
};

}  // namespace nerolith::platform::simulated
