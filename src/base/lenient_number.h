// Text to number without errors: what stored settings and typed fields are read with.
#pragma once

#include <string>
#include <string_view>

namespace nerolith::base {

/// The leading decimal number of `text` ("12abc" -> 12, " 2.5s" -> 2.5, "-.5" -> -0.5, "1e3x" ->
/// 1000), leading blanks skipped; 0 where there is none. The decimal point is always ".".
/// Never throws; a number beyond a double's range is held to its largest finite value.
double leadingNumber(std::string_view text);

/// "True"/"False" in any case; otherwise any number but 0 is true.
bool toBoolean(std::string_view text);

/// Shortest decimal form of a single-precision number: "10", "2.5", "0.1".
std::string shortestDecimal(float value);

/// "True" or "False".
std::string booleanText(bool value);

}  // namespace nerolith::base
