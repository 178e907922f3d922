#include "platform/linux/system/local_day.h"

#include <algorithm>

namespace nerolith::system {
namespace {

constexpr double kSecondsOfDay = 86400;
constexpr double kFirstOfJanuary1970 = 25569;

}  // namespace

LocalMoment localMoment(const timespec& moment) {
  std::tm local{};
  if (!localtime_r(&moment.tv_sec, &local)) return {};
  LocalMoment result;
  // A leap second counts as the one before it.
  result.seconds = local.tm_hour * 3600 + local.tm_min * 60 + std::min(local.tm_sec, 59) +
                   static_cast<double>(moment.tv_nsec) / 1e9;
  local.tm_hour = local.tm_min = local.tm_sec = 0;
  result.day = static_cast<double>(timegm(&local)) / kSecondsOfDay + kFirstOfJanuary1970;
  return result;
}

}  // namespace nerolith::system
