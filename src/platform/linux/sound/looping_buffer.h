// Captured sound, kept in a buffer that is written round and round.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace nerolith::sound {

/// Bytes arrive at one end and go in behind one another; past the last byte it begins again at the
/// first. Whoever reads has to come before the writer has gone round once: what is older is
/// overwritten. Used by one thread.
class LoopingBuffer {
 public:
  /// `size` in bytes, > 0; filled with silence.
  explicit LoopingBuffer(std::size_t size) : bytes_(size) {}

  std::size_t size() const { return bytes_.size(); }

  void append(std::span<const std::byte> sound);
  /// A hole in what arrived: the time passes all the same.
  void appendSilence(std::size_t count);

  /// Where the next byte goes, 0..size-1: everything before it has arrived.
  std::size_t position() const { return position_; }
  /// Copies `into.size()` bytes from `start` on, 0..size-1, going round where the buffer ends. At
  /// most one round.
  void read(std::size_t start, std::span<std::byte> into) const;

 private:
  std::vector<std::byte> bytes_;
  std::size_t position_ = 0;
};

}  // namespace nerolith::sound
