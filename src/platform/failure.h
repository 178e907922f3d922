// The one error type of the platform's doors.
#pragma once

#include "base/failure.h"

namespace nerolith::platform {

/// Thrown by every door (filter graph, file system, settings store, ...) that cannot do what was
/// asked. The text names the file or device.
using Failure = base::Failure;

}  // namespace nerolith::platform
