#include "base/work_ahead.h"

#include <algorithm>
#include <cerrno>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <utility>

#include "base/failure.h"

namespace nerolith::base {
namespace {

constexpr std::chrono::milliseconds kTimeToClose{250};

enum class State { Waiting, Done, Failed };

struct Item {
  State state = State::Waiting;
  double number = 0;
  std::exception_ptr fault;
};

}  // namespace

/// What the threads and their owner share; lives as long as the longest of them.
struct WorkAhead::Row {
  explicit Row(std::vector<std::string> files)
      : paths(std::move(files)), items(paths.size()), watches(paths.size()), end(paths.size()) {}

  const std::vector<std::string> paths;

  std::mutex mutex;  // for all below
  std::condition_variable settled;
  std::vector<Item> items;
  std::vector<JobWatch> watches;  // these may be looked at without the mutex
  std::size_t end;                // no item from here on is needed
  std::size_t begun = 0;          // items handed to a thread
  std::size_t ready = 0;          // items from the first on that are done
  std::size_t taken = 0;
  std::size_t working = 0;  // jobs under way
  std::condition_variable idle;

  bool nothingToWaitFor() const {
    return ready == items.size() || items[ready].state == State::Failed;
  }

  void serve(const Job& job);
  void work(std::unique_lock<std::mutex>& lock, const Job& job, std::size_t i);
  void close();
};

void WorkAhead::Row::serve(const Job& job) {
  std::unique_lock lock(mutex);
  while (begun < end) work(lock, job, begun++);
}

void WorkAhead::Row::work(std::unique_lock<std::mutex>& lock, const Job& job, std::size_t i) {
  Item result;
  ++working;
  lock.unlock();
  try {
    result.number = job(paths[i], watches[i]);
    result.state = State::Done;
  } catch (const Failure&) {
    result.fault = std::current_exception();
  } catch (const std::exception& fault) {  // no memory, say
    result.fault = std::make_exception_ptr(Failure(paths[i] + ": " + fault.what()));
  }
  if (result.fault) result.state = State::Failed;
  lock.lock();
  if (--working == 0) idle.notify_one();
  items[i] = std::move(result);
  if (items[i].state == State::Failed) end = std::min(end, i);
  while (ready < items.size() && items[ready].state == State::Done) ++ready;
  if (nothingToWaitFor()) settled.notify_one();
}

void WorkAhead::Row::close() {
  std::unique_lock lock(mutex);
  end = 0;
  for (std::size_t i = taken; i < begun; ++i) watches[i].abandoned = true;
  idle.wait_for(lock, kTimeToClose, [this] { return working == 0; });
}

WorkAhead::WorkAhead(SpareThreads& threads, std::vector<std::string> paths, const Job& job,
                     std::size_t most, std::chrono::milliseconds standstill)
    : row_(std::make_shared<Row>(std::move(paths))),
      limits_{standstill, std::chrono::hours(24 * 365)},
      patience_(limits_, Patience::Clock::now()) {
  const std::size_t count = std::min(most, row_->paths.size());
  for (std::size_t i = 0; i < count; ++i) {
    try {
      threads.run([row = row_, job] { row->serve(job); });
    } catch (const Failure&) {
      if (i > 0) return;  // the others do its work
      throw;
    }
  }
}

WorkAhead::~WorkAhead() { row_->close(); }

std::vector<double> WorkAhead::take(std::chrono::milliseconds moment) {
  std::unique_lock lock(row_->mutex);
  row_->settled.wait_for(lock, moment, [this] { return row_->nothingToWaitFor(); });
  std::vector<double> numbers;
  for (; row_->taken < row_->ready; ++row_->taken)
    numbers.push_back(row_->items[row_->taken].number);
  const std::size_t next = row_->taken;
  if (!numbers.empty()) {
    patience_ = Patience(limits_, Patience::Clock::now());
  } else if (next < row_->items.size()) {
    if (row_->items[next].state == State::Failed) std::rethrow_exception(row_->items[next].fault);
    giveUpOnADeadOne();
  }
  return numbers;
}

void WorkAhead::giveUpOnADeadOne() {
  const std::uint64_t progress = row_->watches[row_->taken].progress.load();
  if (patience_.over(progress, Patience::Clock::now()))
    throw Failure(row_->paths[row_->taken] + ": the disk or network share does not answer",
                  ETIMEDOUT);
}

}  // namespace nerolith::base
