#include "platform/windows/wide_text.h"

#include <cstddef>
#include <cstdint>

namespace nerolith::windows {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool isHigh(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool isLow(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

/// Reads one character and moves `at` behind it; a byte that begins none is read alone.
char32_t takeCharacter(std::string_view text, std::size_t& at) {
  const auto first = static_cast<unsigned char>(text[at++]);
  if (first < 0x80) return first;
  const std::size_t following = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
  if (first < 0xC2 || first > 0xF4 || text.size() - at < following) return kReplacement;
  char32_t character = first & (0x3Fu >> following);
  for (std::size_t i = 0; i < following; ++i) {
    const auto next = static_cast<unsigned char>(text[at + i]);
    if ((next & 0xC0) != 0x80) return kReplacement;
    character = character << 6 | (next & 0x3Fu);
  }
  constexpr char32_t kSmallest[] = {0, 0x80, 0x800, 0x10000};
  if (character < kSmallest[following] || character > 0x10FFFF) return kReplacement;
  at += following;
  return character;
}

void appendUtf8(std::string& out, char32_t character) {
  if (character < 0x80) {
    out += static_cast<char>(character);
    return;
  }
  int shift = character >= 0x10000 ? 18 : character >= 0x800 ? 12 : 6;
  const unsigned mark = shift == 18 ? 0xF0u : shift == 12 ? 0xE0u : 0xC0u;
  out += static_cast<char>(mark | static_cast<unsigned>(character >> shift));
  while ((shift -= 6) >= 0)
    out += static_cast<char>(0x80u | (static_cast<unsigned>(character >> shift) & 0x3Fu));
}

}  // namespace

std::wstring wideText(std::string_view utf8) {
  std::wstring wide;
  wide.reserve(utf8.size());
  for (std::size_t at = 0; at < utf8.size();) {
    const char32_t character = takeCharacter(utf8, at);
    if (character < 0x10000) {
      wide += static_cast<wchar_t>(character);
    } else {
      wide += static_cast<wchar_t>(0xD7C0 + (character >> 10));
      wide += static_cast<wchar_t>(0xDC00 + (character & 0x3FF));
    }
  }
  return wide;
}

std::string utf8Text(std::wstring_view wide) {
  std::string utf8;
  utf8.reserve(wide.size());
  for (std::size_t at = 0; at < wide.size(); ++at) {
    char32_t unit = static_cast<std::uint16_t>(wide[at]);
    if (isHigh(unit) && at + 1 < wide.size() && isLow(static_cast<std::uint16_t>(wide[at + 1]))) {
      const char32_t low = static_cast<std::uint16_t>(wide[++at]);
      unit = 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
    }
    appendUtf8(utf8, unit);
  }
  return utf8;
}

}  // namespace nerolith::windows
