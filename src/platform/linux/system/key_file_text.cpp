#include "platform/linux/system/key_file_text.h"

#include <cstddef>

#include "base/letter_case.h"

namespace nerolith::system {
namespace {

constexpr std::string_view kDigits = "0123456789abcdef";

void appendHex(std::string& out, char byte) {
  out += kDigits[static_cast<unsigned char>(byte) >> 4];
  out += kDigits[static_cast<unsigned char>(byte) & 15];
}

int hexDigit(char c) {
  if (c >= 'A' && c <= 'F') c = static_cast<char>(c + 32);
  const std::size_t value = kDigits.find(c);
  return value == std::string_view::npos ? -1 : static_cast<int>(value);
}

bool needsHex(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 || byte >= 0x7F;
}

std::string_view escapeFor(char c) {
  switch (c) {
    case '\n':
      return "\\n";
    case '\t':
      return "\\t";
    case '\r':
      return "\\r";
    case '\\':
      return "\\\\";
    default:
      return {};
  }
}

char plainFor(char letter) {
  switch (letter) {
    case 'n':
      return '\n';
    case 't':
      return '\t';
    case 'r':
      return '\r';
    case 's':
      return ' ';
    case '\\':
      return '\\';
    default:
      return 0;
  }
}

}  // namespace

std::string escapedValue(std::string_view text) {
  std::string out;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = base::characterLength(text, at);
    const bool atAnEnd = at == 0 || at + 1 == text.size();
    if (length > 1) {
      out += text.substr(at, length);
    } else if (const std::string_view escape = escapeFor(text[at]); !escape.empty()) {
      out += escape;
    } else if (text[at] == ' ' && atAnEnd) {
      out += "\\s";
    } else if (needsHex(text[at])) {
      out += "\\x";
      appendHex(out, text[at]);
    } else {
      out += text[at];
    }
    at += length;
  }
  return out;
}

std::string unescapedValue(std::string_view value) {
  std::string out;
  for (std::size_t at = 0; at < value.size(); ++at) {
    const char next = at + 1 < value.size() ? value[at + 1] : '\0';
    const int high = next == 'x' && at + 3 < value.size() ? hexDigit(value[at + 2]) : -1;
    const int low = high >= 0 ? hexDigit(value[at + 3]) : -1;
    const char plain = plainFor(next);
    if (value[at] == '\\' && low >= 0) {
      out += static_cast<char>(high * 16 + low);
      at += 3;
    } else if (value[at] == '\\' && plain != 0) {
      out += plain;
      ++at;
    } else {
      out += value[at];
    }
  }
  return out;
}

std::string escapedName(std::string_view name) {
  constexpr std::string_view kHarmless = " _-.";
  if (name.empty()) return "%";
  std::string out;
  for (std::size_t at = 0; at < name.size(); ++at) {
    const char c = name[at];
    const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
    const bool blankAtEnd = c == ' ' && (at == 0 || at + 1 == name.size());
    if (letter || (kHarmless.find(c) != std::string_view::npos && !blankAtEnd)) {
      out += c;
    } else {
      out += '%';
      appendHex(out, c);
    }
  }
  return out;
}

}  // namespace nerolith::system
