// What a deck's decoding thread and the mix share: the decoded frames and the wish to seek.
#pragma once

#include <atomic>
#include <cstdint>

#include "base/job_watch.h"
#include "platform/linux/sound/frame_queue.h"

namespace nerolith::sound {

/// Held by shared pointers: a decoding thread stuck in a dead network share keeps what it touches
/// alive after its deck is gone.
///
/// A seek is a numbered request. While one is under way the mix stays away from the queue, so the
/// decoding thread may empty it; the mix comes back when the number served equals the one asked.
class DeckFeed {
 public:
  FrameQueue queue;

  /// Mix side, and only while the mix is not reading the queue: asks for frames from `frame` on.
  void requestSeek(std::int64_t frame);
  bool seekUnderWay() const;

  /// Decoding side: the newest request's number and place.
  std::uint64_t requestedSeek() const { return requested_.load(std::memory_order_acquire); }
  std::int64_t seekTarget() const { return target_.load(std::memory_order_acquire); }
  std::uint64_t servedSeek() const { return served_.load(std::memory_order_relaxed); }
  /// Decoding side: the queue now holds frames for the request of this number.
  void seekServed(std::uint64_t number) { served_.store(number, std::memory_order_release); }

  /// The deck is gone; the thread ends at its next look.
  void quit();
  bool quitting() const { return watch_.abandoned.load(std::memory_order_acquire); }
  /// Abandoned with `quit`; whoever waits for the file to open sees the progress of its reads.
  base::JobWatch& watch() { return watch_; }

  /// Mix side: wakes the decoding thread when the queue has fallen below one half.
  void consumed();
  /// Decoding side: sleeps until a seek is asked for, `quit`, or, if there is `more` to decode, the
  /// queue is half empty.
  void waitForWork(bool more);

 private:
  bool hasWork(bool more) const;
  void ring();

  std::atomic<std::uint64_t> requested_{0};
  std::atomic<std::int64_t> target_{0};
  std::atomic<std::uint64_t> served_{0};
  base::JobWatch watch_;
  std::atomic<std::uint32_t> bell_{0};
  std::atomic<bool> asleep_{false};
};

}  // namespace nerolith::sound
