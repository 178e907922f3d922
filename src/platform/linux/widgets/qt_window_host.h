// The window host of the Linux program.
#pragma once

#include <map>
#include <memory>

#include "platform/window_host.h"

namespace nerolith::widgets {

class FormTimer;
class FormWindow;

/// Makes a window for each form, when the form is loaded or shown for the first time: forms that
/// nobody opens cost nothing. Needs a running QtApplication, on its thread.
class QtWindowHost : public platform::WindowHost {
 public:
  QtWindowHost();
  ~QtWindowHost() override;

  void add(controls::Form& form) override;
  void remove(controls::Form& form) override;

  /// The window of a form that was loaded or shown; nullptr before.
  FormWindow* windowOf(const controls::Form& form) const;

 private:
  struct Hosted;

  std::map<const controls::Form*, std::unique_ptr<Hosted>> forms_;
};

}  // namespace nerolith::widgets
