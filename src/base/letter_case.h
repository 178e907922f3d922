// Letters without regard to case or accents, in file names.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace nerolith::base {

/// How many bytes the character at `at` takes: a whole UTF-8 sequence, or one byte where the bytes
/// are no UTF-8. `at` lies inside `text`.
std::size_t characterLength(std::string_view text, std::size_t at);

/// `text` in lower case (Latin, Greek, Cyrillic); bytes that are no UTF-8 stay as they are. The
/// same on every machine, whatever its locale.
std::string foldCase(std::string_view text);

/// What names are sorted by: `foldCase` with Latin accents dropped, so that "Édith" stands among
/// the Es. Different names may share a key.
std::string sortKey(std::string_view text);

}  // namespace nerolith::base
