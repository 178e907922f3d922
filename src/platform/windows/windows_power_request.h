// Keeps Windows awake while the player plays or records.
#pragma once

#include <windows.h>

#include "platform/power_request.h"

namespace nerolith::windows {

/// The system's calls; those that an older system has not are null.
struct PowerCalls {
  HANDLE(WINAPI* create)(PREASON_CONTEXT) = nullptr;
  BOOL(WINAPI* set)(HANDLE, POWER_REQUEST_TYPE) = nullptr;
  BOOL(WINAPI* clear)(HANDLE, POWER_REQUEST_TYPE) = nullptr;
  EXECUTION_STATE(WINAPI* setThreadState)(EXECUTION_STATE) = nullptr;
  BOOL(WINAPI* close)(HANDLE) = nullptr;

  static PowerCalls ofTheSystem();
};

/// A power request with its reason in words, which "powercfg /requests" shows; where the system has
/// none to give, the execution state of this thread. Both end with the process.
class WindowsPowerRequest final : public platform::PowerRequest {
 public:
  explicit WindowsPowerRequest(const PowerCalls& calls = PowerCalls::ofTheSystem())
      : calls_(calls) {}
  ~WindowsPowerRequest() override { release(); }
  WindowsPowerRequest(const WindowsPowerRequest&) = delete;
  WindowsPowerRequest& operator=(const WindowsPowerRequest&) = delete;

  void hold(Why why) override;
  void release() override;

 private:
  bool request(Why why);

  PowerCalls calls_;
  HANDLE request_ = nullptr;
  bool byThread_ = false;
};

}  // namespace nerolith::windows
