// Paths that no line of text can hold, as addresses that it can.
#pragma once

#include <string>
#include <string_view>

namespace nerolith::playlist {

/// `text` as it is when it stands on a line of its own and comes back from there the same, or when
/// it is no absolute path; else "file://" and the path, with "%" and two hexadecimal digits for
/// every byte that is no letter, digit or harmless sign.
std::string lineOfPath(std::string_view text);

/// The reverse, for addresses that `lineOfPath` makes; any other line as it is.
std::string pathOfLine(std::string_view line);

}  // namespace nerolith::playlist
