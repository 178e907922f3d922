#include "recording/half_count.h"

#include <cmath>

namespace nerolith::recording {
namespace {

constexpr double kDay = 86400;
/// More than this between two ticks is a clock that was set, or a machine that slept.
constexpr double kLongestStall = 1800;

}  // namespace

void HalfCount::tick(std::int32_t place, double now, bool fetched) {
  if (bufferBytes_ == 0) return;  // nothing was started
  const double elapsed = now >= seen_ ? now - seen_ : now - seen_ + kDay;
  std::int64_t advance = place - place_;
  if (advance < 0) advance += bufferBytes_;
  if (elapsed < kLongestStall) {
    const double rounds =
        std::round((elapsed * bytesPerSecond_ - static_cast<double>(advance)) / bufferBytes_);
    if (rounds > 0) advance += static_cast<std::int64_t>(rounds) * bufferBytes_;
  }
  const std::int64_t half = bufferBytes_ / 2;
  const std::int64_t completed = (reached_ + advance) / half - reached_ / half;
  const std::int64_t lost = completed - (fetched ? 1 : 0);
  if (lost > 0) missed_ += static_cast<std::int32_t>(lost);
  reached_ += advance;
  place_ = place;
  seen_ = now;
}

}  // namespace nerolith::recording
