// One playback unit: decodes one sound file and plays it at a volume of its own.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/duration_reader.h"

namespace nerolith::platform {

/// A deck's engine. Lifecycle: created empty -> renderFile -> run <-> pause -> stop; one graph
/// plays one file and is replaced by a fresh one for the next. Destroying it silences it at once.
/// Called on the user-interface thread only; a backend may decode on threads of its own.
///
/// On a graph that holds no rendered file, `currentPosition` is 0 and `stop` does nothing; every
/// other call fails.
class FilterGraph {
 public:
  virtual ~FilterGraph() = default;

  /// Opens `path` (UTF-8, absolute) and makes it ready to run; when it returns, `duration` is
  /// known to within 0.1 s. Nothing is heard yet. Fails for a missing, empty, unreadable or
  /// non-audio file, for one of which nothing can be read for 5 s, and after 10 s at the latest for
  /// one that is read too slowly; the graph is then still empty.
  virtual void renderFile(const std::string& path) = 0;

  /// Starts or resumes playing at the current position. At the end of the file it does nothing.
  virtual void run() = 0;
  /// Falls silent and freezes the position exactly.
  virtual void pause() = 0;
  /// Falls silent; the position stays.
  virtual void stop() = 0;

  /// Length of the file in seconds, > 0.
  virtual double duration() const = 0;
  /// What is heard now, in seconds, 0..duration. Stays at the duration when the end was reached.
  virtual double currentPosition() const = 0;
  /// Seeks, in seconds; sample-exact where the format allows. Fails outside 0..duration.
  virtual void setCurrentPosition(double seconds) = 0;

  /// Level in hundredths of a decibel: 0 full, -10000 silence.
  virtual std::int32_t volume() const = 0;
  /// Fails outside -10000..0. Heard without a click; never touches the system's own volume.
  virtual void setVolume(std::int32_t hundredthsOfDecibel) = 0;
};

/// Makes graphs, and knows how the sound output behind all of them fares.
class FilterGraphFactory {
 public:
  virtual ~FilterGraphFactory() = default;

  /// A fresh, empty graph. Cheap: touches neither file nor sound card.
  virtual std::unique_ptr<FilterGraph> createFilterGraph() = 0;

  /// Begins to read the durations of these files (UTF-8, absolute), in this order: the same figures
  /// that a graph of each would tell, with the same failures. Waits for nothing. What is asked for
  /// must be gone before this is. Unless a backend knows better, each file gets its graph.
  virtual std::unique_ptr<DurationReader> readDurations(std::vector<std::string> paths);

  /// One sentence for the user while sound cannot be put out ("The sound server does not answer
  /// ..."), empty while all is well. Playing goes on by itself at the same position once it can.
  virtual std::string soundTrouble() const = 0;

  /// Seconds from running a deck to hearing it, now: what is on its way to the sound card. 0 where
  /// nothing plays, or where the output has no such delay.
  virtual double startDelay() const { return 0; }
};

}  // namespace nerolith::platform
