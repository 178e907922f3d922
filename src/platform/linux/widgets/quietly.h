// No exception may leave a slot: the toolkit's own frames lie below it.
#pragma once

#include <QtGlobal>
#include <exception>
#include <utility>

#include "base/failure.h"

namespace nerolith::widgets {

/// Runs `call`. A failure was already dealt with by the handler's own policy where it has one, so
/// what still arrives here ends quietly; anything else is a fault of ours and is told on the
/// terminal.
template <typename Call>
void quietly(Call&& call) noexcept {
  try {
    std::forward<Call>(call)();
  } catch (const base::Failure&) {
  } catch (const std::exception& fault) {
    qWarning("Nerolith: %s", fault.what());
  }
}

}  // namespace nerolith::widgets
