// How long a file plays, found without a deck, and remembered.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

#include "base/file_memory.h"
#include "base/job_watch.h"
#include "platform/linux/sound/file_reader.h"
#include "platform/linux/sound/open_source.h"

namespace nerolith::sound {

/// The same figure that a deck with the file would tell, to the frame. MPEG audio and MIDI need no
/// decoder for that; every other file is opened as a deck opens it. For any thread, any number of
/// them at a time.
class SongMeasurer {
 public:
  /// `open` is how the decks open files.
  explicit SongMeasurer(SourceOpener open = openSource) : open_(std::move(open)) {}

  /// Seconds, > 0. What was measured before and is still the same file is not opened again. Fails
  /// (`platform::Failure`) for what a deck could not play.
  double durationOf(const std::string& path, base::JobWatch& watch);

 private:
  std::int64_t framesOf(const FileReader& file, base::JobWatch& watch);
  std::int64_t framesOfMidi(const FileReader& file, base::JobWatch& watch);
  std::int64_t framesAsADeckTells(const FileReader& file, base::JobWatch& watch);

  SourceOpener open_;
  base::FileMemory known_;
  std::atomic<bool> midiCanBePlayed_{false};  // a synthesizer was had once
};

}  // namespace nerolith::sound
