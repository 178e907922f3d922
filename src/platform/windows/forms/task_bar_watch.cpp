#include "platform/windows/forms/task_bar_watch.h"

#include <utility>

namespace nerolith::windows_forms {
namespace {

constexpr UINT kSecond = 1000;  // milliseconds
constexpr UINT_PTR kLook = 1;

}  // namespace

// A window of the top level: the shell's announcement does not reach others.
TaskBarWatch::TaskBarWatch(std::function<void()> created, std::function<void()> timeToLook)
    : created_(std::move(created)),
      timeToLook_(std::move(timeToLook)),
      createdMessage_(RegisterWindowMessageW(L"TaskbarCreated")) {
  create({plainClass(), WS_POPUP});
  // A player that was started with higher rights than the shell would not hear of it.
  ChangeWindowMessageFilterEx(handle(), createdMessage_, MSGFLT_ALLOW, nullptr);
  SetTimer(handle(), kLook, kSecond, nullptr);  // ends with the window
}

std::optional<LRESULT> TaskBarWatch::onMessage(UINT message, WPARAM first, LPARAM) {
  if (message == createdMessage_) {
    created_();
    return 0;
  }
  if (message == WM_TIMER && first == kLook) {
    timeToLook_();
    return 0;
  }
  return std::nullopt;
}

}  // namespace nerolith::windows_forms
