// The one error type that a handler's failure policy knows.
#pragma once

#include <stdexcept>
#include <string>

namespace nerolith::base {

/// Something could not be done: a door of the platform failed, a position lies outside the played
/// tags, a control was given a value outside its range. Unless the thrower says otherwise, nothing
/// was changed by the failed call. The text is fit to be shown to the user.
class Failure : public std::runtime_error {
 public:
  explicit Failure(const std::string& text, int code = 0) : std::runtime_error(text), code_(code) {}

  /// The platform's own error number (errno, HRESULT, ...); 0 where it has none.
  int code() const noexcept { return code_; }

 private:
  int code_;
};

}  // namespace nerolith::base
