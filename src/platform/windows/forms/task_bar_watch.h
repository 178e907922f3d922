// Hears that the task bar was made anew.
#pragma once

#include <functional>

#include "platform/windows/forms/window.h"

namespace nerolith::windows_forms {

/// After a fall of the shell every program has to tell it of its icon again. A window out of sight
/// hears of it, as long as this lives.
class TaskBarWatch : public Window {
 public:
  explicit TaskBarWatch(std::function<void()> created);

 protected:
  std::optional<LRESULT> onMessage(UINT message, WPARAM first, LPARAM second) override;

 private:
  std::function<void()> created_;
  UINT createdMessage_;
};

}  // namespace nerolith::windows_forms
