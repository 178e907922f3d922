#include "platform/windows/windows_power_request.h"

#include <string>
#include <utility>

#include "platform/windows/system_call.h"

namespace nerolith::windows {

PowerCalls PowerCalls::ofTheSystem() {
  PowerCalls calls;
  const HMODULE kernel = GetModuleHandleW(L"kernel32.dll");
  findCall(kernel, "PowerCreateRequest", calls.create);
  findCall(kernel, "PowerSetRequest", calls.set);
  findCall(kernel, "PowerClearRequest", calls.clear);
  calls.setThreadState = &SetThreadExecutionState;
  calls.close = &CloseHandle;
  return calls;
}

bool WindowsPowerRequest::request(Why why) {
  if (!calls_.create || !calls_.set || !calls_.clear) return false;
  std::wstring words = why == Why::Playing ? L"Music is playing" : L"Sound is being recorded";
  REASON_CONTEXT reason{};
  reason.Version = POWER_REQUEST_CONTEXT_VERSION;
  reason.Flags = POWER_REQUEST_CONTEXT_SIMPLE_STRING;
  reason.Reason.SimpleReasonString = words.data();
  const HANDLE made = calls_.create(&reason);
  if (!made || made == INVALID_HANDLE_VALUE) return false;
  if (!calls_.set(made, PowerRequestSystemRequired)) {
    calls_.close(made);
    return false;
  }
  request_ = made;
  return true;
}

void WindowsPowerRequest::hold(Why why) {
  if (request_ || byThread_) return;
  if (request(why)) return;
  byThread_ = calls_.setThreadState(ES_CONTINUOUS | ES_SYSTEM_REQUIRED) != 0;
}

void WindowsPowerRequest::release() {
  if (const HANDLE held = std::exchange(request_, nullptr)) {
    calls_.clear(held, PowerRequestSystemRequired);
    calls_.close(held);
  }
  if (std::exchange(byThread_, false)) calls_.setThreadState(ES_CONTINUOUS);
}

}  // namespace nerolith::windows
