// The thread that opens one deck's file and decodes ahead of the mix.
#pragma once

#include <atomic>
#include <cstdint>
#include <future>
#include <memory>
#include <string>
#include <thread>

#include "base/patience.h"
#include "base/retired_threads.h"
#include "platform/linux/sound/deck_feed.h"
#include "platform/linux/sound/open_source.h"

namespace nerolith::sound {

/// Started with its construction. Its destruction never waits: the thread is told to end and handed
/// over to the retired ones. The thread touches nothing but the feed and its own source.
class DecodeThread {
 public:
  DecodeThread(base::RetiredThreads& retired, SourceOpener open, std::string path);
  ~DecodeThread();
  DecodeThread(const DecodeThread&) = delete;
  DecodeThread& operator=(const DecodeThread&) = delete;

  /// Waits until the file is open and its first 200 ms are decoded; returns its length in frames.
  /// Fails (`platform::Failure`) however the opening failed, or when nothing more could be read for
  /// too long. A file without a header is read as a whole, which a slow disk may take its time for.
  std::int64_t waitUntilReady(const base::Patience::Limits& limits);

  const std::shared_ptr<DeckFeed>& feed() const { return feed_; }

 private:
  base::RetiredThreads& retired_;
  std::string path_;
  std::shared_ptr<DeckFeed> feed_;
  std::shared_ptr<std::atomic<bool>> ended_;
  std::future<std::int64_t> ready_;
  std::thread thread_;
};

}  // namespace nerolith::sound
