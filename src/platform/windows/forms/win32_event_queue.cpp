#include "platform/windows/forms/win32_event_queue.h"

#include "platform/windows/forms/quietly.h"

namespace nerolith::windows_forms {
namespace {

constexpr UINT_PTR kCallsWait = 1;

}  // namespace

/// Rings while calls wait: the only way to run them in a loop that is not ours.
class Win32EventQueue::Alarm : public Window {
 public:
  explicit Alarm(Win32EventQueue& queue) : queue_(queue) {
    create({plainClass(), 0, 0, HWND_MESSAGE});
  }
  void set() { SetTimer(handle(), kCallsWait, USER_TIMER_MINIMUM, nullptr); }
  void stop() { KillTimer(handle(), kCallsWait); }

 protected:
  std::optional<LRESULT> onMessage(UINT message, WPARAM first, LPARAM) override {
    if (message != WM_TIMER || first != kCallsWait) return std::nullopt;
    queue_.runNext();
    return 0;
  }

 private:
  Win32EventQueue& queue_;
};

Win32EventQueue::Win32EventQueue() : alarm_(std::make_unique<Alarm>(*this)) {}
Win32EventQueue::~Win32EventQueue() = default;

void Win32EventQueue::post(std::function<void()> call) {
  calls_.push_back(std::move(call));
  alarm_->set();
}

bool Win32EventQueue::runNext() {
  if (calls_.empty()) return false;
  const std::function<void()> call = std::move(calls_.front());
  calls_.pop_front();
  if (calls_.empty()) alarm_->stop();
  quietly(call);
  return true;
}

void Win32EventQueue::handle(const MSG& message) {
  if (filter_ && filter_(message)) return;
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

bool Win32EventQueue::handleWaiting(int& exitCode) {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      exitCode = static_cast<int>(message.wParam);
      return false;
    }
    handle(message);
  }
  return true;
}

void Win32EventQueue::runWaitingEvents() {
  int exitCode = 0;
  if (!handleWaiting(exitCode)) PostQuitMessage(exitCode);  // for the loop that runs around this
}

int Win32EventQueue::run() {
  int exitCode = 0;
  while (handleWaiting(exitCode))
    if (!runNext()) WaitMessage();
  return exitCode;
}

}  // namespace nerolith::windows_forms
