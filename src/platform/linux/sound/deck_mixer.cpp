#include "platform/linux/sound/deck_mixer.h"

#include <algorithm>

namespace nerolith::sound {

void DeckMixer::add(const Voice& voice) {
  const std::lock_guard lock(mutex_);
  voices_.push_back(voice);
}

void DeckMixer::remove(const Voice& voice) {
  const std::lock_guard lock(mutex_);
  voice->halt(tailFor(*voice));
  starvationsOfGone_ += voice->starvations();
  std::erase(voices_, voice);
}

void DeckMixer::run(const Voice& voice) {
  const std::lock_guard lock(mutex_);
  voice->run();
}

void DeckMixer::halt(const Voice& voice) {
  const std::lock_guard lock(mutex_);
  voice->halt(tailFor(*voice));
}

void DeckMixer::moveTo(const Voice& voice, std::int64_t frame) {
  const std::lock_guard lock(mutex_);
  voice->moveTo(frame, tailFor(*voice));
}

void DeckMixer::setGain(const Voice& voice, float gain) {
  const std::lock_guard lock(mutex_);
  voice->setGain(gain);
}

std::int64_t DeckMixer::positionHeard(const Voice& voice, std::int64_t heardFrames) {
  const std::lock_guard lock(mutex_);
  return voice->positionHeard(heardFrames);
}

bool DeckMixer::mix(std::span<Frame> out) {
  std::fill(out.begin(), out.end(), Frame{});
  const std::lock_guard lock(mutex_);
  bool sound = tailStart_ < tail_.size();
  addTail(out);
  for (const Voice& voice : voices_) {
    if (voice->running() && !voice->ended()) sound = true;
    voice->mixInto(out, mixed_);
  }
  clip(out);
  mixed_ += static_cast<std::int64_t>(out.size());
  return sound;
}

bool DeckMixer::fed(std::size_t frames) const {
  const std::lock_guard lock(mutex_);
  return std::all_of(voices_.begin(), voices_.end(),
                     [frames](const Voice& voice) { return voice->fed(frames); });
}

bool DeckMixer::active() const {
  const std::lock_guard lock(mutex_);
  return tailStart_ < tail_.size() ||
         std::any_of(voices_.begin(), voices_.end(),
                     [](const Voice& v) { return v->running() && !v->ended(); });
}

std::int64_t DeckMixer::mixedFrames() const {
  const std::lock_guard lock(mutex_);
  return mixed_;
}

std::uint64_t DeckMixer::clippedSamples() const {
  const std::lock_guard lock(mutex_);
  return clipped_;
}

std::uint64_t DeckMixer::starvations() const {
  const std::lock_guard lock(mutex_);
  std::uint64_t sum = starvationsOfGone_;
  for (const Voice& voice : voices_) sum += voice->starvations();
  return sum;
}

std::span<Frame> DeckMixer::tailFor(const DeckVoice& voice) {
  if (!voice.running()) return {};
  // A fade that is still waiting moves to the front; the new one is added to it.
  std::move(tail_.begin() + static_cast<std::ptrdiff_t>(tailStart_), tail_.end(), tail_.begin());
  std::fill(tail_.end() - static_cast<std::ptrdiff_t>(tailStart_), tail_.end(), Frame{});
  tailStart_ = 0;
  return tail_;
}

void DeckMixer::addTail(std::span<Frame> out) {
  const std::size_t count = std::min(out.size(), tail_.size() - tailStart_);
  for (std::size_t i = 0; i < count; ++i) {
    out[i].left += tail_[tailStart_ + i].left;
    out[i].right += tail_[tailStart_ + i].right;
  }
  tailStart_ += count;
}

void DeckMixer::clip(std::span<Frame> out) {
  const auto clipOne = [this](float& sample) {
    if (sample > 1 || sample < -1) {
      sample = std::clamp(sample, -1.0F, 1.0F);
      ++clipped_;
    }
  };
  for (Frame& frame : out) {
    clipOne(frame.left);
    clipOne(frame.right);
  }
}

}  // namespace nerolith::sound
