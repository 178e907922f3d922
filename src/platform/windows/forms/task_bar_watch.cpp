#include "platform/windows/forms/task_bar_watch.h"

#include <utility>

namespace nerolith::windows_forms {

// A window of the top level: the shell's announcement does not reach others.
TaskBarWatch::TaskBarWatch(std::function<void()> created)
    : created_(std::move(created)), createdMessage_(RegisterWindowMessageW(L"TaskbarCreated")) {
  create({plainClass(), WS_POPUP});
  // A player that was started with higher rights than the shell would not hear of it.
  ChangeWindowMessageFilterEx(handle(), createdMessage_, MSGFLT_ALLOW, nullptr);
}

std::optional<LRESULT> TaskBarWatch::onMessage(UINT message, WPARAM, LPARAM) {
  if (message != createdMessage_) return std::nullopt;
  created_();
  return 0;
}

}  // namespace nerolith::windows_forms
