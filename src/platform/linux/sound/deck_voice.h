// One deck's part in the mix: whether it runs, how loud it is, and where it is in its song.
#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "platform/linux/sound/deck_feed.h"
#include "platform/linux/sound/gain_ramp.h"

namespace nerolith::sound {

/// Not safe by itself: every call is made under the mixer's lock.
///
/// The song's frames are counted when they go into the mix. They are heard later, by what the
/// stream to the sound server still holds; the voice remembers at which frame of the mix it gave
/// its last one, and so knows what is heard once it is told how far the stream was heard.
class DeckVoice {
 public:
  DeckVoice(std::shared_ptr<DeckFeed> feed, std::int64_t totalFrames);

  /// Starts or resumes; nothing at the end of the song.
  void run();
  /// Ends at once; the last milliseconds are faded out into `tail` (added, as far as it reaches).
  void halt(std::span<Frame> tail);
  /// Goes on at `frame` (0..total); what is cut off is faded out into `tail` as in `halt`.
  void moveTo(std::int64_t frame, std::span<Frame> tail);
  void setGain(float gain);

  /// Adds the next frames to `out`, whose first frame is number `mixedBefore` of the mix.
  /// Returns whether the voice wants more of the mix: it runs and is not at its end.
  bool mixInto(std::span<Frame> out, std::int64_t mixedBefore);

  /// What is heard when the mix was heard up to frame `heard`; never falls while running.
  std::int64_t positionHeard(std::int64_t heard);

  /// Does not run, or so many frames (or all that are left) are decoded and waiting.
  bool fed(std::size_t frames) const;
  bool running() const { return running_; }
  bool ended() const { return position_ >= total_; }
  std::int64_t totalFrames() const { return total_; }
  /// How often the decoder came too late.
  std::uint64_t starvations() const { return starvations_; }

 private:
  void add(std::span<const Frame> in, std::span<Frame> out);
  std::size_t take(std::span<Frame> out);
  void fadeOutInto(std::span<Frame> tail);

  std::shared_ptr<DeckFeed> feed_;
  std::int64_t total_;
  bool running_ = false;
  bool starving_ = false;
  GainRamp gain_;
  GainRamp edge_;
  std::int64_t position_ = 0;     // the next frame to go into the mix
  std::int64_t lastMixedAt_ = 0;  // the mix's frame number after our last frame
  std::int64_t reported_ = 0;     // the least position that may be told
  std::uint64_t starvations_ = 0;
};

}  // namespace nerolith::sound
