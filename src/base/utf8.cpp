#include "base/utf8.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace nerolith::base {
namespace {

/// Length of the well-formed sequence that `text` begins with; 0 when there is none.
std::size_t sequenceLength(std::string_view text) {
  const auto at = [&text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned first = at(0);
  if (first < 0x80) return 1;
  if (first < 0xC2 || first > 0xF4) return 0;
  const std::size_t following = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
  if (text.size() <= following) return 0;
  std::uint32_t character = first & (0x3Fu >> following);
  for (std::size_t i = 1; i <= following; ++i) {
    if ((at(i) & 0xC0) != 0x80) return 0;
    character = character << 6 | (at(i) & 0x3Fu);
  }
  constexpr std::uint32_t kSmallest[] = {0, 0x80, 0x800, 0x10000};
  return character < kSmallest[following] || character > 0x10FFFF ? 0 : following + 1;
}

}  // namespace

bool isAscii(std::string_view text) {
  return std::none_of(text.begin(), text.end(),
                      [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

bool isUtf8(std::string_view text) {
  while (!text.empty()) {
    const std::size_t length = sequenceLength(text);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

}  // namespace nerolith::base
