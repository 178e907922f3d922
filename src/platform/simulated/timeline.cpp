#include "platform/simulated/timeline.h"

#include <algorithm>
#include <utility>

namespace nerolith::platform::simulated {

void Timeline::advance(Duration length) {
  const Duration until = now_ + length;
  runPosted();
  while (!ended_) {
    const std::shared_ptr<Entry> next = nextDue(until);
    if (!next) break;
    now_ = std::max(now_, next->due);
    tick(*next);
    runPosted();
  }
  now_ = std::max(now_, until);
}

void Timeline::add(controls::Timer& timer) {
  auto entry = std::make_shared<Entry>();
  entry->timer = &timer;
  entry->due = now_ + timer.interval();
  entry->changes = timer.changed.subscribe([this, raw = entry.get()] {
    if (raw->timer->enabled()) raw->due = now_ + raw->timer->interval();
  });
  entries_.push_back(std::move(entry));
}

void Timeline::drop(controls::Timer& timer) {
  std::erase_if(entries_, [&](const std::shared_ptr<Entry>& entry) {
    if (entry->timer != &timer) return false;
    entry->dropped = true;
    entry->changes.end();
    return true;
  });
}

void Timeline::beginAgain() {
  posted_.clear();
  ended_ = false;
}

std::size_t Timeline::runningTimers() const {
  return static_cast<std::size_t>(
      std::count_if(entries_.begin(), entries_.end(),
                    [](const std::shared_ptr<Entry>& entry) { return entry->timer->enabled(); }));
}

void Timeline::runPosted() {
  // Only what waits now: a call that posts itself again must not keep the others from running.
  for (std::size_t waiting = posted_.size(); waiting > 0 && !posted_.empty() && !ended_;
       --waiting) {
    const std::function<void()> call = std::move(posted_.front());
    posted_.pop_front();
    call();
  }
}

std::shared_ptr<Timeline::Entry> Timeline::nextDue(Duration until) const {
  std::shared_ptr<Entry> next;
  for (const std::shared_ptr<Entry>& entry : entries_) {
    if (!entry->timer->enabled() || entry->ticking || entry->due > until) continue;
    if (!next || entry->due < next->due) next = entry;
  }
  return next;
}

void Timeline::tick(Entry& entry) {
  struct Ticking {
    explicit Ticking(Entry& entry) : entry(entry) { entry.ticking = true; }
    ~Ticking() { entry.ticking = false; }
    Entry& entry;
  };
  const Duration interval = std::max<Duration>(entry.timer->interval(), Duration(1));
  entry.due += interval;
  const Ticking ticking(entry);
  entry.timer->tick.raise();
  if (entry.dropped) return;
  // What was missed while the tick itself took its time is not made up.
  while (entry.due <= now_) entry.due += interval;
}

}  // namespace nerolith::platform::simulated
