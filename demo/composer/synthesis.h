// Turns a song into sound.
#pragma once

#include <vector>

#include "note.h"

namespace nerolith::demo {

inline constexpr int kSampleRate = 44100;

/// Stereo sound: as many samples in `left` as in `right`, each -1..1.
struct Sound {
  std::vector<float> left;
  std::vector<float> right;
};

/// Plays every note, adds the room, brings the peak to -1.5 dB and fades the last moment out.
/// The same song gives the same samples.
Sound render(const Song& song);

}  // namespace nerolith::demo
