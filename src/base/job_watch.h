// What a job on a thread of its own and whoever waits for it tell each other.
#pragma once

#include <atomic>
#include <cstdint>

namespace nerolith::base {

struct JobWatch {
  /// Nobody waits any more: the job ends as soon as it can.
  std::atomic<bool> abandoned{false};
  /// Grows with all that the job gets done, bytes read say: a job that is slow is not dead.
  std::atomic<std::uint64_t> progress{0};
};

}  // namespace nerolith::base
