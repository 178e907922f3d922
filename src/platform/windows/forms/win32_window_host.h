// The window host of the Windows program.
#pragma once

#include <map>
#include <memory>

#include "controls/picture_box.h"
#include "platform/window_host.h"
#include "platform/windows/forms/form_window.h"
#include "platform/windows/forms/win32_event_queue.h"

namespace nerolith::windows_forms {

/// Makes a window for each form, when the form is loaded or shown for the first time: forms that
/// nobody opens cost nothing. The event queue outlives it; all on its thread.
class Win32WindowHost : public platform::WindowHost {
 public:
  explicit Win32WindowHost(Win32EventQueue& events);
  ~Win32WindowHost() override;

  void add(controls::Form& form) override;
  void remove(controls::Form& form) override;

  /// What is to hear the messages of a form's window once it is made, before the form does. The
  /// form was added; the listener outlives it.
  void listen(const controls::Form& form, FormWindow::Listener listener);

  /// The window of a form that was loaded or shown; nullptr before.
  FormWindow* windowOf(const controls::Form& form) const;
  /// The window of a picture box in one of these; nullptr where there is none.
  HWND windowOf(controls::PictureBox& picture) const;
  /// The icon of the form's window; nullptr where there is none.
  HICON iconOf(const controls::Form& form) const;

 private:
  struct Hosted;

  bool takesMessage(const MSG& message);

  Win32EventQueue& events_;
  std::map<const controls::Form*, std::unique_ptr<Hosted>> forms_;
};

}  // namespace nerolith::windows_forms
