// Looks after the task bar.
#pragma once

#include <functional>

#include "platform/windows/forms/window.h"

namespace nerolith::windows_forms {

/// After a fall of the shell every program has to tell it of its icon again. A window out of sight
/// hears that the task bar was made anew, as long as this lives. That it is gone is announced by
/// nobody: once a second is the time to look.
class TaskBarWatch : public Window {
 public:
  TaskBarWatch(std::function<void()> created, std::function<void()> timeToLook);

 protected:
  std::optional<LRESULT> onMessage(UINT message, WPARAM first, LPARAM second) override;

 private:
  std::function<void()> created_, timeToLook_;
  UINT createdMessage_;
};

}  // namespace nerolith::windows_forms
