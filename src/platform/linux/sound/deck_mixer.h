// The sum of the decks: what goes to the sound server.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <mutex>
#include <span>
#include <vector>

#include "platform/linux/sound/deck_voice.h"

namespace nerolith::sound {

/// Adds up the voices in 32-bit float and clips the sum once, hard, at full level. `mix` is called
/// by the output's thread, everything else by the user-interface thread; all are safe against each
/// other and none waits longer than one small block takes to be mixed (well under a millisecond).
class DeckMixer {
 public:
  using Voice = std::shared_ptr<DeckVoice>;

  void add(const Voice& voice);
  /// Falls silent with a fade of a few milliseconds that needs the voice no more.
  void remove(const Voice& voice);

  void run(const Voice& voice);
  void halt(const Voice& voice);
  void moveTo(const Voice& voice, std::int64_t frame);
  void setGain(const Voice& voice, float gain);
  std::int64_t positionHeard(const Voice& voice, std::int64_t heardFrames);

  /// Fills `out`; returns whether any of it, or anything that follows, may be sound.
  bool mix(std::span<Frame> out);

  /// The next `frames` frames can be mixed without waiting for a decoder. For who mixes faster
  /// than the clock.
  bool fed(std::size_t frames) const;

  /// Some voice runs or a fade is still to be put out.
  bool active() const;

  /// Frames given out so far: the time line that `heardFrames` refers to.
  std::int64_t mixedFrames() const;
  /// Samples (left and right count singly) that were cut at full level.
  std::uint64_t clippedSamples() const;
  /// Times a decoder came too late, over all voices present.
  std::uint64_t starvations() const;

 private:
  using Tail = std::array<Frame, kEdgeRampFrames>;

  std::span<Frame> tailFor(const DeckVoice& voice);
  void addTail(std::span<Frame> out);
  void clip(std::span<Frame> out);

  mutable std::mutex mutex_;
  std::vector<Voice> voices_;
  Tail tail_{};  // fades of what was cut off, still to be put out
  std::size_t tailStart_ = kEdgeRampFrames;
  std::int64_t mixed_ = 0;
  std::uint64_t clipped_ = 0;
  std::uint64_t starvationsOfGone_ = 0;
};

}  // namespace nerolith::sound
