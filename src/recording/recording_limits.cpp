#include "recording/recording_limits.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "base/lenient_number.h"

namespace nerolith::recording {
namespace {

/// Whole numbers up to here are exact, and no disk is as large.
constexpr double kLargest = 1e15;

double numberOf(std::string_view text) {
  return std::clamp(base::leadingNumber(text), -kLargest, kLargest);
}

std::string textOf(double number) {
  std::array<char, 64> buffer{};
  // Adding 0 keeps a negative number that was cut off to nothing from being written as "-0".
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number + 0.0,
                                    std::chars_format::fixed);
  return result.ec == std::errc() ? std::string(buffer.data(), result.ptr) : "0";
}

}  // namespace

std::string limitText(std::string_view typed) { return textOf(numberOf(typed)); }

std::string minutesOfMegabytes(std::string_view megabytes) {
  return textOf(std::trunc(numberOf(megabytes) * kBytesPerMegabyte / kBytesPerSecond / 60));
}

std::string megabytesOfMinutes(std::string_view minutes) {
  return textOf(std::trunc(numberOf(minutes) * kBytesPerSecond * 60 / kBytesPerMegabyte));
}

bool limitReached(std::string_view megabytes, float fadeLength, std::int32_t fileBytes) {
  const double value = numberOf(megabytes);
  if (value <= 0) return false;
  return value * kBytesPerMegabyte - double{fadeLength} * kBytesPerSecond < fileBytes;
}

std::string sizeText(std::int32_t fileBytes) {
  const double tenths = std::floor(fileBytes * 10.0 / kBytesPerMegabyte + 0.5);
  const auto whole = static_cast<long long>(tenths);
  return std::to_string(whole / 10) + "." + std::to_string(std::abs(whole % 10)) + " MB";
}

std::string fileSizeText(std::int32_t fileBytes) { return "Filesize: " + sizeText(fileBytes); }

}  // namespace nerolith::recording
