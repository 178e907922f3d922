// Names of WAV files.
#pragma once

#include <string>

namespace nerolith::recording {

/// `path` with ".wav" behind it, unless its name has an ending of its own. Both kinds of separator
/// count.
std::string withWaveEnding(const std::string& path);

/// The name proposed for a standard copy of `path`: "song.wav" -> "song standard.wav".
std::string standardCopyName(const std::string& path);

}  // namespace nerolith::recording
