#include "platform/windows/local_day.h"

#include <cstdint>

#include "platform/windows/failure_text.h"

namespace nerolith::windows {
namespace {

constexpr std::uint64_t kTicksOfSecond = 10'000'000;
constexpr std::uint64_t kTicksOfDay = 86400 * kTicksOfSecond;
/// Windows counts from 1 January 1601.
constexpr double kFirstOfJanuary1601 = -109205;

}  // namespace

LocalMoment localMoment(const FILETIME& moment) {
  SYSTEMTIME universal{}, local{};
  FILETIME shifted{};
  if (!FileTimeToSystemTime(&moment, &universal) ||
      !SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local) ||
      !SystemTimeToFileTime(&local, &shifted))
    throwLastError("The local time");
  const std::uint64_t ticks =
      static_cast<std::uint64_t>(shifted.dwHighDateTime) << 32 | shifted.dwLowDateTime;
  const std::uint64_t days = ticks / kTicksOfDay;
  return {static_cast<double>(days) + kFirstOfJanuary1601,
          static_cast<double>(ticks % kTicksOfDay) / static_cast<double>(kTicksOfSecond)};
}

}  // namespace nerolith::windows
