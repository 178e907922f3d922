#include "base/spare_threads.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

#include "base/failure.h"

namespace nerolith::base {

/// Where the threads wait.
struct SpareThreads::Room {
  std::mutex mutex;  // for all below
  std::condition_variable wake;
  std::deque<std::function<void()>> waiting;
  std::size_t idle = 0;
  std::size_t notOver = 0;
  bool closed = false;

  void serve();
};

void SpareThreads::Room::serve() {
  std::unique_lock lock(mutex);
  for (;;) {
    ++idle;
    wake.wait(lock, [this] { return closed || !waiting.empty(); });
    --idle;
    if (waiting.empty()) return;
    std::function<void()> work = std::move(waiting.front());
    waiting.pop_front();
    lock.unlock();
    work();
    work = nullptr;  // what it holds goes without the lock
    lock.lock();
    --notOver;
  }
}

SpareThreads::SpareThreads(std::chrono::milliseconds patience)
    : room_(std::make_shared<Room>()), threads_(patience) {}

SpareThreads::~SpareThreads() {
  const std::lock_guard lock(room_->mutex);
  room_->closed = true;
  room_->wake.notify_all();
}

void SpareThreads::run(std::function<void()> work) {
  const std::lock_guard lock(room_->mutex);
  // Threads that were called and are not awake yet still count as idle.
  if (room_->waiting.size() >= room_->idle) startThread();
  room_->waiting.push_back(std::move(work));
  ++room_->notOver;
  room_->wake.notify_one();
}

// Handed over as soon as it begins: there is nothing to be done for it later.
void SpareThreads::startThread() {
  const auto ended = std::make_shared<std::atomic<bool>>(false);
  try {
    std::thread thread([room = room_, ended] {
      room->serve();
      ended->store(true, std::memory_order_release);
    });
    threads_.retire(std::move(thread), ended);
  } catch (const std::system_error& error) {
    throw Failure("The system has no thread to spare.", error.code().value());
  }
}

std::size_t SpareThreads::atWork() const {
  const std::lock_guard lock(room_->mutex);
  return room_->notOver;
}

}  // namespace nerolith::base
