// Sound files that the tests write themselves.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/linux/sound/audio_source.h"

namespace nerolith::sound_tests {

using sound::Frame;

/// Stereo, 32-bit float: what is read back is what was written.
void writeWave(const std::string& path, const std::vector<Frame>& frames,
               int rate = sound::kSampleRate);

/// A rising tone on a falling one: no stretch of it resembles any other.
std::vector<Frame> chirp(double seconds, int rate = sound::kSampleRate);

/// Each frame tells its own number. Survives anything that leaves samples alone.
std::vector<Frame> numbered(double seconds);
/// The number told by a frame played at full level, -1 if it is none.
std::int64_t numberOf(const Frame& frame);

std::vector<Frame> silence(double seconds);

}  // namespace nerolith::sound_tests
