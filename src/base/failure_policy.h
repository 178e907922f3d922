// What a handler does when one of its steps fails. Each handler names exactly one policy.
#pragma once

#include <utility>

#include "base/failure.h"

namespace nerolith::base {

/// Runs one step; when it fails the step is skipped and the caller goes on with its next one.
/// Returns whether the step succeeded. For timer ticks, releasing a deck, load, activate, keys.
template <typename Step>
bool goOn(Step&& step) {
  try {
    std::forward<Step>(step)();
    return true;
  } catch (const Failure&) {
    return false;
  }
}

/// Runs a whole handler; the first failing step ends it, what was done stays done.
/// Returns whether it reached its end. For actions of the user.
template <typename Body>
bool endQuietly(Body&& body) {
  return goOn(std::forward<Body>(body));
}

}  // namespace nerolith::base
