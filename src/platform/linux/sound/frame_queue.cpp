#include "platform/linux/sound/frame_queue.h"

#include <algorithm>

namespace nerolith::sound {

FrameQueue::FrameQueue(std::size_t capacity)
    : capacity_(capacity), frames_(std::make_unique_for_overwrite<Frame[]>(capacity)) {}

std::size_t FrameQueue::size() const {
  const std::size_t consumed = consumed_.load(std::memory_order_acquire);
  return written_.load(std::memory_order_acquire) - consumed;
}

std::span<Frame> FrameQueue::writable() {
  const std::size_t written = written_.load(std::memory_order_relaxed);
  const std::size_t free = capacity_ - (written - consumed_.load(std::memory_order_acquire));
  const std::size_t place = written % capacity_;
  return {frames_.get() + place, std::min(free, capacity_ - place)};
}

void FrameQueue::commit(std::size_t count) {
  written_.store(written_.load(std::memory_order_relaxed) + count, std::memory_order_release);
}

std::span<const Frame> FrameQueue::readable() const {
  const std::size_t consumed = consumed_.load(std::memory_order_relaxed);
  const std::size_t waiting = written_.load(std::memory_order_acquire) - consumed;
  const std::size_t place = consumed % capacity_;
  return {frames_.get() + place, std::min(waiting, capacity_ - place)};
}

void FrameQueue::consume(std::size_t count) {
  consumed_.store(consumed_.load(std::memory_order_relaxed) + count, std::memory_order_release);
}

bool FrameQueue::drained() const {
  // The order matters: what is committed before `finish` must be seen once `finish` is.
  return finished() && readable().empty();
}

void FrameQueue::reset() {
  finished_.store(false, std::memory_order_relaxed);
  consumed_.store(0, std::memory_order_relaxed);
  written_.store(0, std::memory_order_release);
}

}  // namespace nerolith::sound
