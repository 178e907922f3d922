#include "platform/linux/sound/deck_voice.h"

#include <algorithm>
#include <array>

namespace nerolith::sound {

DeckVoice::DeckVoice(std::shared_ptr<DeckFeed> feed, std::int64_t totalFrames)
    : feed_(std::move(feed)), total_(totalFrames) {}

void DeckVoice::run() {
  if (running_ || ended()) return;
  running_ = true;
  reported_ = position_;
  // A song's own beginning is not touched; anywhere else the sound would start in mid-swing.
  if (position_ == 0) {
    edge_.jumpTo(1);
  } else {
    edge_.jumpTo(0);
    edge_.glideTo(1, kEdgeRampFrames);
  }
}

void DeckVoice::halt(std::span<Frame> tail) {
  if (!running_) return;
  fadeOutInto(tail);
  running_ = false;
  gain_.jumpTo(gain_.target());
  // The faded frames count as played: resuming goes on behind them, so nothing comes twice.
  reported_ = position_;
}

void DeckVoice::moveTo(std::int64_t frame, std::span<Frame> tail) {
  const bool wasRunning = running_;
  halt(tail);
  feed_->requestSeek(frame);
  position_ = reported_ = frame;
  if (wasRunning) run();
}

void DeckVoice::setGain(float gain) {
  if (running_) {
    gain_.glideTo(gain, kVolumeRampFrames);
  } else {
    gain_.jumpTo(gain);
  }
}

bool DeckVoice::mixInto(std::span<Frame> out, std::int64_t mixedBefore) {
  if (!running_ || ended()) return false;
  if (feed_->seekUnderWay()) return true;
  const std::size_t taken = take(out);
  if (taken > 0) lastMixedAt_ = mixedBefore + static_cast<std::int64_t>(taken);
  if (taken < out.size()) {
    if (feed_->queue.drained()) {
      // A damaged file may end before its time; the end is the end all the same.
      position_ = total_;
    } else if (!starving_) {
      starving_ = true;
      ++starvations_;
    }
  } else {
    starving_ = false;
  }
  feed_->consumed();
  return !ended();
}

std::size_t DeckVoice::take(std::span<Frame> out) {
  std::size_t taken = 0;
  while (taken < out.size() && !ended()) {
    const std::span<const Frame> waiting = feed_->queue.readable();
    if (waiting.empty()) break;
    const std::size_t count = std::min(
        {waiting.size(), out.size() - taken, static_cast<std::size_t>(total_ - position_)});
    add(waiting.first(count), out.subspan(taken, count));
    feed_->queue.consume(count);
    position_ += static_cast<std::int64_t>(count);
    taken += count;
  }
  return taken;
}

void DeckVoice::add(std::span<const Frame> in, std::span<Frame> out) {
  if (!edge_.gliding()) {
    gain_.addScaled(in, out);
    return;
  }
  for (std::size_t i = 0; i < in.size(); ++i) {
    const float level = gain_.next() * edge_.next();
    out[i].left += in[i].left * level;
    out[i].right += in[i].right * level;
  }
}

void DeckVoice::fadeOutInto(std::span<Frame> tail) {
  if (ended() || feed_->seekUnderWay()) return;
  edge_.glideTo(0, static_cast<int>(tail.size()));
  take(tail);
}

bool DeckVoice::fed(std::size_t frames) const {
  if (!running_ || ended()) return true;
  return !feed_->seekUnderWay() && (feed_->queue.finished() || feed_->queue.size() >= frames);
}

std::int64_t DeckVoice::positionHeard(std::int64_t heard) {
  if (!running_) return reported_;
  const std::int64_t unheard = std::max<std::int64_t>(0, lastMixedAt_ - heard);
  reported_ = std::clamp(position_ - unheard, reported_, total_);
  return reported_;
}

}  // namespace nerolith::sound
