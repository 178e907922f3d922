// Counts the halves of the capture buffer that went by unfetched.
#pragma once

#include <cstdint>

namespace nerolith::recording {

/// The cursor alone cannot tell one round of the buffer from two; the clock can. Pure.
class HalfCount {
 public:
  HalfCount() = default;
  /// A buffer of `bufferBytes` that was started at `now` (seconds since midnight).
  HalfCount(std::int32_t bufferBytes, std::int32_t bytesPerSecond, double now)
      : bufferBytes_(bufferBytes), bytesPerSecond_(bytesPerSecond), seen_(now) {}

  /// At a tick, the cursor at `place`; `fetched` tells whether it moved a half into the file.
  void tick(std::int32_t place, double now, bool fetched);
  /// At a tick while no sound arrives.
  void standStill(double now) { seen_ = now; }

  std::int32_t missed() const { return missed_; }

 private:
  std::int32_t bufferBytes_ = 0;
  std::int32_t bytesPerSecond_ = 0;
  double seen_ = 0;
  std::int32_t place_ = 0;
  std::int64_t reached_ = 0;  // bytes since the start
  std::int32_t missed_ = 0;
};

}  // namespace nerolith::recording
