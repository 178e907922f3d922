#include "base/retired_threads.h"

#include <utility>

namespace nerolith::base {

RetiredThreads::~RetiredThreads() {
  const auto deadline = std::chrono::steady_clock::now() + patience_;
  reap();
  while (!threads_.empty() && std::chrono::steady_clock::now() < deadline) {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
    reap();
  }
  for (Retired& stuck : threads_) stuck.thread.detach();
}

void RetiredThreads::retire(std::thread thread, std::shared_ptr<const std::atomic<bool>> ended) {
  reap();
  threads_.push_back({std::move(thread), std::move(ended)});
}

void RetiredThreads::reap() {
  std::erase_if(threads_, [](Retired& retired) {
    if (!retired.ended->load(std::memory_order_acquire)) return false;
    retired.thread.join();
    return true;
  });
}

}  // namespace nerolith::base
