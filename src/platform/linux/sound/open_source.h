// Chooses the decoder for a file.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "base/job_watch.h"
#include "platform/linux/sound/audio_source.h"

namespace nerolith::sound {

/// Opens a file for a deck's decoding thread; `watch` outlives the source. A test puts its own
/// here.
using SourceOpener =
    std::function<std::unique_ptr<AudioSource>(const std::string& path, base::JobWatch& watch)>;

/// By content: MIDI, MPEG audio, or whatever libav makes of it. Fails (`platform::Failure`) with a
/// sentence for the user for a file that is missing, unreadable, empty or holds no sound.
std::unique_ptr<AudioSource> openSource(const std::string& path, base::JobWatch& watch);

}  // namespace nerolith::sound
