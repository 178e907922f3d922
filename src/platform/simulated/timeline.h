// Virtual time: the clock, the timers and the posted calls of a simulated machine are one thing.
#pragma once

#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <vector>

#include "controls/timer.h"

namespace nerolith::platform::simulated {

/// Time stands still while the player's code runs, and moves only in `advance` and `yield`, from
/// one event to the next. Posted calls run first; timers that are due at the same moment run in
/// the order in which they were added. An exception of an event passes to the caller of `advance`
/// with the clock at that event.
class Timeline {
 public:
  using Duration = std::chrono::nanoseconds;

  /// Time since the machine was made.
  Duration now() const { return now_; }

  /// Runs what is due within `length`, in order, and ends exactly that much later (unless events
  /// themselves advanced further). May be called from within an event.
  void advance(Duration length);
  /// Lets waiting events run, and a little time pass: a loop that waits for the clock and yields
  /// on each pass comes to its end.
  void yield() { advance(yieldTime_); }
  /// 1 ms unless set.
  void setYieldTime(Duration length) { yieldTime_ = length; }

  /// Lets time pass without running anything, as a busy user-interface thread does.
  void stall(Duration length) { now_ += length; }

  void post(std::function<void()> call) { posted_.push_back(std::move(call)); }

  /// Runs the timer's ticks from now on, the first one after a whole interval; switching it off
  /// and on starts a new interval. The timer outlives this or is dropped before it goes.
  void add(controls::Timer& timer);
  void drop(controls::Timer& timer);

  /// After the end nothing runs any more; time still passes.
  void end() { ended_ = true; }
  bool ended() const { return ended_; }
  /// For a test that starts the program again on the same machine. Posted calls are dropped.
  void beginAgain();

  std::size_t postedCalls() const { return posted_.size(); }
  /// Timers that are switched on.
  std::size_t runningTimers() const;
  /// Whether anything will happen by itself when time passes.
  bool pending() const { return !ended_ && (postedCalls() > 0 || runningTimers() > 0); }

 private:
  struct Entry {
    controls::Timer* timer;
    Duration due;
    bool ticking = false;
    bool dropped = false;
    base::Subscription changes;
  };

  void runPosted();
  std::shared_ptr<Entry> nextDue(Duration until) const;
  void tick(Entry& entry);

  std::deque<std::function<void()>> posted_;
  std::vector<std::shared_ptr<Entry>> entries_;  // an entry outlives its own tick
  Duration now_{0};
  Duration yieldTime_ = std::chrono::milliseconds(1);
  bool ended_ = false;
};

}  // namespace nerolith::platform::simulated
