// No exception may leave a window procedure: the system's own frames lie below it.
#pragma once

#include <windows.h>

#include <exception>
#include <utility>

#include "base/failure.h"

namespace nerolith::windows_forms {

/// Runs `call`. A failure was already dealt with by the handler's own policy where it has one, so
/// what still arrives here ends quietly; anything else is a fault of ours and is told to whoever
/// debugs the program.
template <typename Call>
void quietly(Call&& call) noexcept {
  try {
    std::forward<Call>(call)();
  } catch (const base::Failure&) {
  } catch (const std::exception& fault) {
    OutputDebugStringA(fault.what());
  }
}

}  // namespace nerolith::windows_forms
