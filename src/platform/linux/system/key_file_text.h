// Any text as one value, and any name as one group or key, of a key file.
#pragma once

#include <string>
#include <string_view>

namespace nerolith::system {

/// One line of valid UTF-8 without blanks at its ends, whatever bytes `text` holds. "\n", "\t",
/// "\r", "\s" and "\\" as in every key file; other control characters and bytes that are no UTF-8
/// as "\x" and two hexadecimal digits.
std::string escapedValue(std::string_view text);
/// The reverse. An escape that `escapedValue` does not make stands for itself.
std::string unescapedValue(std::string_view value);

/// Letters, digits, blanks within and harmless signs as they are, all else as "%" and two
/// hexadecimal digits, "/" among it; "%" alone is the empty name. Different names stay different.
std::string escapedName(std::string_view name);

}  // namespace nerolith::system
