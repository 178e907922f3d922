// Chooses the decoder for a file.
#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <string>

#include "platform/linux/sound/audio_source.h"

namespace nerolith::sound {

/// Opens a file for a deck's decoding thread; `abort` outlives the source. A test puts its own
/// here.
using SourceOpener = std::function<std::unique_ptr<AudioSource>(const std::string& path,
                                                                const std::atomic<bool>& abort)>;

/// By content: MIDI, MPEG audio, or whatever libav makes of it. Fails (`platform::Failure`) with a
/// sentence for the user for a file that is missing, unreadable, empty or holds no sound.
std::unique_ptr<AudioSource> openSource(const std::string& path, const std::atomic<bool>& abort);

}  // namespace nerolith::sound
