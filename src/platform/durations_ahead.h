// For backends that read durations on threads of their own.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

#include "base/work_ahead.h"
#include "platform/duration_reader.h"

namespace nerolith::platform {

/// See `base::WorkAhead` for what it is made with.
class DurationsAhead : public DurationReader {
 public:
  /// How long the window is left alone: a fiftieth of a second is not noticed.
  static constexpr std::chrono::milliseconds kMoment{20};

  DurationsAhead(base::SpareThreads& threads, std::vector<std::string> paths,
                 const base::WorkAhead::Job& measure, std::size_t most,
                 std::chrono::milliseconds standstill = std::chrono::seconds(5))
      : work_(threads, std::move(paths), measure, most, standstill) {}

  std::vector<double> take() override { return work_.take(kMoment); }

 private:
  base::WorkAhead work_;
};

}  // namespace nerolith::platform
