#include "platform/linux/sound/looping_buffer.h"

#include <algorithm>

namespace nerolith::sound {

void LoopingBuffer::append(std::span<const std::byte> sound) {
  while (!sound.empty()) {
    const std::size_t count = std::min(sound.size(), bytes_.size() - position_);
    std::copy_n(sound.data(), count, bytes_.data() + position_);
    position_ = (position_ + count) % bytes_.size();
    sound = sound.subspan(count);
  }
}

void LoopingBuffer::appendSilence(std::size_t count) {
  while (count > 0) {
    const std::size_t piece = std::min(count, bytes_.size() - position_);
    std::fill_n(bytes_.data() + position_, piece, std::byte{0});
    position_ = (position_ + piece) % bytes_.size();
    count -= piece;
  }
}

void LoopingBuffer::read(std::size_t start, std::span<std::byte> into) const {
  const std::size_t first = std::min(into.size(), bytes_.size() - start);
  std::copy_n(bytes_.data() + start, first, into.data());
  std::copy_n(bytes_.data(), into.size() - first, into.data() + first);
}

}  // namespace nerolith::sound
