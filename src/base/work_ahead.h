// A number for each of many files, found ahead on threads of its own and handed out in order.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/job_watch.h"
#include "base/patience.h"
#include "base/spare_threads.h"

namespace nerolith::base {

/// The threads begin at once and take the files in order; none begins a file behind one that
/// failed. At its end, files that are being read get a quarter of a second to be closed (somebody
/// may be about to delete them); nobody waits longer for a thread that hangs in a dead network
/// share. Made, asked and destroyed on one thread; the spare threads outlive it.
class WorkAhead {
 public:
  /// Run on several threads at a time, each time for another path; owns all that it touches, or
  /// shares it. It tells its progress to the watch and ends soon when that says so.
  using Job = std::function<double(const std::string& path, JobWatch& watch)>;

  /// On at most `most` of the threads. Fails (`Failure`) if the system has none to spare.
  WorkAhead(SpareThreads& threads, std::vector<std::string> paths, const Job& job, std::size_t most,
            std::chrono::milliseconds standstill = std::chrono::seconds(5));
  ~WorkAhead();
  WorkAhead(const WorkAhead&) = delete;
  WorkAhead& operator=(const WorkAhead&) = delete;

  /// Waits until all that is left is done, but for `moment` at the most; returns the numbers that
  /// come next in order. None: the next is not there yet, ask again. Fails when the next one's job
  /// failed, or has made no progress for as long as `standstill`, and the same way ever after.
  std::vector<double> take(std::chrono::milliseconds moment);

 private:
  struct Row;

  void giveUpOnADeadOne();

  std::shared_ptr<Row> row_;
  Patience::Limits limits_;
  Patience patience_;  // for the next in order
};

}  // namespace nerolith::base
