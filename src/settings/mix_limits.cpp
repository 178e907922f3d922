#include "settings/mix_limits.h"

#include <cmath>

#include "base/lenient_number.h"

namespace nerolith::settings {
namespace {

constexpr double kLongestMix = 30;
constexpr double kLongestLead = 60;

double wholePart(std::string_view text) { return std::trunc(base::leadingNumber(text)); }

}  // namespace

std::string validLength(std::string_view length, std::string_view lead) {
  const double seconds = wholePart(length);
  return std::string(seconds > kLongestMix || seconds > wholePart(lead) ? lead : length);
}

std::string validLead(std::string_view length, std::string_view lead) {
  const double seconds = wholePart(lead);
  return std::string(seconds > kLongestLead || wholePart(length) > seconds ? length : lead);
}

}  // namespace nerolith::settings
