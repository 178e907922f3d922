#include "platform/linux/system/system_failure.h"

#include <system_error>

#include "platform/failure.h"

namespace nerolith::system {

void throwSystemFailure(const std::string& what, int error) {
  throw platform::Failure(what + ": " + std::generic_category().message(error), error);
}

}  // namespace nerolith::system
