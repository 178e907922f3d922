// The thread that opens one deck's file and decodes ahead of the mix.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <future>
#include <memory>
#include <string>
#include <thread>

#include "platform/linux/sound/deck_feed.h"
#include "platform/linux/sound/open_source.h"
#include "platform/linux/sound/retired_threads.h"

namespace nerolith::sound {

/// Started with its construction. Its destruction never waits: the thread is told to end and handed
/// over to the retired ones. The thread touches nothing but the feed and its own source.
class DecodeThread {
 public:
  DecodeThread(RetiredThreads& retired, SourceOpener open, std::string path);
  ~DecodeThread();
  DecodeThread(const DecodeThread&) = delete;
  DecodeThread& operator=(const DecodeThread&) = delete;

  /// Waits until the file is open and its first 200 ms are decoded; returns its length in frames.
  /// Fails (`platform::Failure`) however the opening failed, or when `patience` is over.
  std::int64_t waitUntilReady(std::chrono::milliseconds patience);

  const std::shared_ptr<DeckFeed>& feed() const { return feed_; }

 private:
  RetiredThreads& retired_;
  std::string path_;
  std::shared_ptr<DeckFeed> feed_;
  std::shared_ptr<std::atomic<bool>> ended_;
  std::future<std::int64_t> ready_;
  std::thread thread_;
};

}  // namespace nerolith::sound
