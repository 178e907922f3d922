#include "platform/linux/sound/deck_feed.h"

namespace nerolith::sound {

void DeckFeed::requestSeek(std::int64_t frame) {
  target_.store(frame, std::memory_order_release);
  requested_.fetch_add(1, std::memory_order_acq_rel);
  ring();
}

bool DeckFeed::seekUnderWay() const {
  return requested_.load(std::memory_order_acquire) != served_.load(std::memory_order_acquire);
}

void DeckFeed::quit() {
  watch_.abandoned.store(true, std::memory_order_release);
  ring();
}

void DeckFeed::consumed() {
  // One ring a sleep: the mix runs often and must not make as many system calls.
  if (queue.size() <= queue.capacity() / 2 && asleep_.exchange(false)) ring();
}

bool DeckFeed::hasWork(bool more) const {
  return quitting() || requestedSeek() != servedSeek() ||
         (more && queue.size() <= queue.capacity() / 2);
}

void DeckFeed::waitForWork(bool more) {
  for (;;) {
    const std::uint32_t heard = bell_.load(std::memory_order_acquire);
    asleep_.store(true);
    if (hasWork(more)) break;
    bell_.wait(heard, std::memory_order_acquire);
  }
  asleep_.store(false);
}

void DeckFeed::ring() {
  bell_.fetch_add(1, std::memory_order_acq_rel);
  bell_.notify_one();
}

}  // namespace nerolith::sound
