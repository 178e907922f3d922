#include "base/lenient_number.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <limits>

#include "base/trimmed.h"

namespace nerolith::base {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

constexpr std::string_view kBlanks = " \t\r\n";

std::string_view skipBlanks(std::string_view text) {
  const auto start = text.find_first_not_of(kBlanks);
  return start == std::string_view::npos ? std::string_view{} : text.substr(start);
}

/// Whether a number too small or too large for a double is the small kind: its exponent says so,
/// or, where it has none, its whole part is zero.
bool isBelowOne(std::string_view number) {
  const auto exponent = number.find_first_of("eE");
  if (exponent != number.npos) return number[exponent + 1] == '-';
  return number.substr(0, number.find('.')).find_first_not_of('0') == number.npos;
}

bool equalsIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](unsigned char x, unsigned char y) {
    return std::tolower(x) == std::tolower(y);
  });
}

}  // namespace

double leadingNumber(std::string_view text) {
  text = skipBlanks(text);
  bool negative = false;
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
    negative = text.front() == '-';
    text.remove_prefix(1);
  }
  const bool startsLikeNumber =
      !text.empty() &&
      (isDigit(text.front()) || (text.front() == '.' && text.size() > 1 && isDigit(text[1])));
  if (!startsLikeNumber) return 0.0;

  double value = 0.0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    const std::string_view read(text.data(), static_cast<std::size_t>(result.ptr - text.data()));
    value = isBelowOne(read) ? 0.0 : std::numeric_limits<double>::max();
  }
  return negative ? -value : value;
}

bool toBoolean(std::string_view text) {
  const std::string_view word = trimmed(text, kBlanks);
  if (equalsIgnoringCase(word, "true")) return true;
  if (equalsIgnoringCase(word, "false")) return false;
  return leadingNumber(word) != 0.0;
}

std::string shortestDecimal(float value) {
  std::array<char, 64> buffer{};
  const auto result =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed);
  return {buffer.data(), result.ptr};
}

std::string booleanText(bool value) { return value ? "True" : "False"; }

}  // namespace nerolith::base
