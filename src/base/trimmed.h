// A text without the blanks around it.
#pragma once

#include <string_view>

namespace nerolith::base {

/// `text` without those signs at its ends that are in `blanks`; empty when it has no others.
inline std::string_view trimmed(std::string_view text, std::string_view blanks = " ") {
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

}  // namespace nerolith::base
