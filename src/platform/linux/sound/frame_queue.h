// The frames decoded ahead of one deck: a ring between its decoding thread and the mix.
#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <span>

#include "platform/linux/sound/audio_source.h"

namespace nerolith::sound {

/// One producer thread, one consumer thread, no lock: the mix never waits for a decoder.
/// Both sides work in place: ask for a contiguous region, use it, then commit or consume.
class FrameQueue {
 public:
  /// About two seconds: a disk that spins up is bridged, and the decoder wakes once a second.
  static constexpr std::size_t kDefaultCapacity = std::size_t{2} * kSampleRate;

  explicit FrameQueue(std::size_t capacity = kDefaultCapacity);

  std::size_t capacity() const { return capacity_; }
  /// Frames waiting; a snapshot on either side.
  std::size_t size() const;

  /// Producer: the next free region, empty when full.
  std::span<Frame> writable();
  /// Producer: the first `count` frames of `writable()` are filled.
  void commit(std::size_t count);
  /// Producer: no frame follows those committed so far.
  void finish() { finished_.store(true, std::memory_order_release); }

  /// Consumer: the next waiting region, empty when nothing waits.
  std::span<const Frame> readable() const;
  /// Consumer: the first `count` frames of `readable()` are used up.
  void consume(std::size_t count);
  /// No frame follows those that wait.
  bool finished() const { return finished_.load(std::memory_order_acquire); }

  /// Consumer: all that will come has been consumed.
  bool drained() const;

  /// Producer: empties the queue and forgets `finish`. Only while the consumer stays away.
  void reset();

 private:
  std::size_t capacity_;
  std::unique_ptr<Frame[]> frames_;
  // Running totals; their difference is the fill, their remainder the place in the ring.
  std::atomic<std::size_t> written_{0};
  std::atomic<std::size_t> consumed_{0};
  std::atomic<bool> finished_{false};
};

}  // namespace nerolith::sound
