#include "platform/linux/sound/decode_thread.h"

#include <algorithm>
#include <exception>
#include <system_error>
#include <utility>

#include "platform/failure.h"
#include "platform/linux/sound/file_reader.h"

namespace nerolith::sound {
namespace {

/// Decoded before a file counts as ready, and before a seek counts as done: the rest of the ring
/// fills much faster than it is played.
constexpr std::size_t kHeadStart = kSampleRate / 5;
/// Between two looks at the wishes of the deck.
constexpr std::size_t kStride = kSampleRate / 10;

/// Decodes until `frames` wait in the ring or the sound ends; false at the end.
bool decodeUpTo(AudioSource& source, DeckFeed& feed, std::size_t frames) {
  while (feed.queue.size() < frames && !feed.quitting()) {
    const std::span<Frame> room = feed.queue.writable();
    if (room.empty()) return true;
    const std::span<Frame> piece =
        room.first(std::min({room.size(), frames - feed.queue.size(), kStride}));
    const std::size_t got = source.read(piece);
    feed.queue.commit(got);
    if (got < piece.size()) {
      feed.queue.finish();
      return false;
    }
  }
  return true;
}

void serve(AudioSource& source, DeckFeed& feed) {
  bool more = true;
  while (!feed.quitting()) {
    const std::uint64_t wanted = feed.requestedSeek();
    if (wanted != feed.servedSeek()) {
      feed.queue.reset();
      source.seek(feed.seekTarget());
      more = decodeUpTo(source, feed, kHeadStart);
      feed.seekServed(wanted);
    } else if (more && feed.queue.size() < feed.queue.capacity()) {
      more = decodeUpTo(source, feed, std::min(feed.queue.size() + kStride, feed.queue.capacity()));
    } else {
      feed.waitForWork(more);
    }
  }
}

void decode(DeckFeed& feed, const SourceOpener& open, const std::string& path,
            std::promise<std::int64_t> ready) {
  std::unique_ptr<AudioSource> source;
  try {
    source = open(path, feed.watch());
    decodeUpTo(*source, feed, kHeadStart);
    ready.set_value(source->totalFrames());
  } catch (...) {
    ready.set_exception(std::current_exception());
    return;
  }
  try {
    serve(*source, feed);
  } catch (const std::exception&) {
    feed.queue.finish();  // no memory, say: the song ends here
  }
}

}  // namespace

DecodeThread::DecodeThread(base::RetiredThreads& retired, SourceOpener open, std::string path)
    : retired_(retired),
      path_(std::move(path)),
      feed_(std::make_shared<DeckFeed>()),
      ended_(std::make_shared<std::atomic<bool>>(false)) {
  std::promise<std::int64_t> ready;
  ready_ = ready.get_future();
  try {
    thread_ = std::thread([feed = feed_, ended = ended_, open = std::move(open), path = path_,
                           promise = std::move(ready)]() mutable {
      decode(*feed, open, path, std::move(promise));
      ended->store(true, std::memory_order_release);
    });
  } catch (const std::system_error& error) {
    throw platform::Failure(
        "Cannot play " + quotedName(path_) + ": the system has no thread to spare.",
        error.code().value());
  }
}

DecodeThread::~DecodeThread() {
  feed_->quit();
  retired_.retire(std::move(thread_), ended_);
}

std::int64_t DecodeThread::waitUntilReady(const base::Patience::Limits& limits) {
  const auto look = std::max(limits.standstill / 50, std::chrono::milliseconds(1));
  base::Patience patience(limits, base::Patience::Clock::now());
  while (ready_.wait_for(look) != std::future_status::ready) {
    if (!patience.over(feed_->watch().progress.load(), base::Patience::Clock::now())) continue;
    throw platform::Failure("Cannot play " + quotedName(path_) +
                            ": the disk or network share does not answer.");
  }
  try {
    return ready_.get();
  } catch (const platform::Failure&) {
    throw;
  } catch (const std::exception& fault) {
    // No memory, say: one more file that cannot be played, and no reason to play no other.
    throw platform::Failure("Cannot play " + quotedName(path_) + ": " + fault.what() + ".");
  }
}

}  // namespace nerolith::sound
