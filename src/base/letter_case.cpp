#include "base/letter_case.h"

#include <algorithm>
#include <cstdint>

namespace nerolith::base {
namespace {

/// Plain letters of U+00C0 to U+017F; a blank keeps the character.
constexpr std::string_view kPlainLetters =
    "aaaaaaaceeeeiiiidnooooo ouuuuytsaaaaaaaceeeeiiiidnooooo ouuuuyty"
    "aaaaaaccccccccddddeeeeeeeeeegggggggghhhhiiiiiiiiiiiijjkkkllllllllll"
    "nnnnnnnnnoooooooorrrrrrssssssssttttttuuuuuuuuuuuuwwyyyzzzzzzs";
static_assert(kPlainLetters.size() == 0x180 - 0xC0);

bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

char lowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

char32_t lowerLatin(char32_t c) {
  if (c <= 0xDE) return c == 0xD7 ? c : c + 32;
  if (c == 0x178) return 0xFF;
  const bool upperIsOdd = (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E);
  const bool upperIsEven = (c >= 0x100 && c <= 0x137 && c != 0x130) || (c >= 0x14A && c <= 0x177);
  if (upperIsOdd && c % 2 == 1) return c + 1;
  if (upperIsEven && c % 2 == 0) return c + 1;
  return c;
}

char32_t lowerGreek(char32_t c) {
  if (c == 0x386) return 0x3AC;
  if (c >= 0x388 && c <= 0x38A) return c + 37;
  if (c == 0x38C) return 0x3CC;
  if (c == 0x38E || c == 0x38F) return c + 63;
  return c >= 0x391 && c <= 0x3AB && c != 0x3A2 ? c + 32 : c;
}

char32_t lower(char32_t c) {
  if (c >= 0xC0 && c <= 0x17F) return lowerLatin(c);
  if (c >= 0x386 && c <= 0x3AB) return lowerGreek(c);
  if (c >= 0x410 && c <= 0x42F) return c + 32;
  if (c >= 0x400 && c <= 0x40F) return c + 80;
  return c;
}

/// All the letters above take two bytes.
char32_t decodePair(std::string_view text, std::size_t at) {
  return static_cast<char32_t>((static_cast<unsigned char>(text[at]) & 0x1F) << 6 |
                               (static_cast<unsigned char>(text[at + 1]) & 0x3F));
}

void appendPair(std::string& out, char32_t c) {
  out += static_cast<char>(0xC0 | (c >> 6));
  out += static_cast<char>(0x80 | (c & 0x3F));
}

template <typename AppendLetter>
std::string convert(std::string_view text, AppendLetter appendLetter) {
  std::string out(text);
  if (isAscii(text)) {
    std::transform(out.begin(), out.end(), out.begin(), lowerAscii);
    return out;
  }
  out.clear();
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = characterLength(text, at);
    if (length == 2)
      appendLetter(out, decodePair(text, at));
    else if (length == 1)
      out += lowerAscii(text[at]);
    else
      out += text.substr(at, length);
    at += length;
  }
  return out;
}

}  // namespace

std::size_t characterLength(std::string_view text, std::size_t at) {
  const auto byteAt = [&](std::size_t i) {
    return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u;
  };
  const unsigned first = byteAt(at);
  std::size_t length = 1;
  if (first >= 0xC2 && first <= 0xDF) length = 2;
  if (first >= 0xE0 && first <= 0xEF) length = 3;
  if (first >= 0xF0 && first <= 0xF4) length = 4;
  for (std::size_t i = 1; i < length; ++i)
    if ((byteAt(at + i) & 0xC0) != 0x80) return 1;
  const unsigned second = byteAt(at + 1);
  const bool tooLong = (first == 0xE0 && second < 0xA0) || (first == 0xF0 && second < 0x90);
  const bool noCharacter = (first == 0xED && second > 0x9F) || (first == 0xF4 && second > 0x8F);
  return tooLong || noCharacter ? 1 : length;
}

std::string foldCase(std::string_view text) {
  return convert(text, [](std::string& out, char32_t c) { appendPair(out, lower(c)); });
}

std::string sortKey(std::string_view text) {
  return convert(text, [](std::string& out, char32_t c) {
    const char plain = c >= 0xC0 && c < 0x180 ? kPlainLetters[c - 0xC0] : ' ';
    if (plain == ' ')
      appendPair(out, lower(c));
    else
      out += plain;
  });
}

}  // namespace nerolith::base
