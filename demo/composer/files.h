// Writes the demo music to files.
#pragma once

#include <string>

#include "note.h"
#include "synthesis.h"

namespace nerolith::demo {

/// 16-bit stereo WAV. Throws std::runtime_error when the file cannot be written.
void writeWav(const std::string& path, const Sound& sound);
/// A MIDI file with General MIDI instruments. Throws std::runtime_error as above.
void writeMidi(const std::string& path, const Song& song);

}  // namespace nerolith::demo
