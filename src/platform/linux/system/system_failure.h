// The system's error number as a failure that can be shown.
#pragma once

#include <cerrno>
#include <string>

namespace nerolith::system {

/// Throws platform::Failure "WHAT: the system's words", its code the error number.
[[noreturn]] void throwSystemFailure(const std::string& what, int error = errno);

}  // namespace nerolith::system
