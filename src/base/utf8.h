// Telling UTF-8 from other bytes.
#pragma once

#include <string_view>

namespace nerolith::base {

/// Only bytes below 128; true for an empty text.
bool isAscii(std::string_view text);

/// Whether every byte is part of a well-formed sequence; true for an empty text. A surrogate as
/// three bytes counts as well-formed: names on a Windows disk may hold one without its partner.
bool isUtf8(std::string_view text);

}  // namespace nerolith::base
