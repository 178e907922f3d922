// Everything between the player's decks and the sound server, made and owned in one place.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "base/retired_threads.h"
#include "base/spare_threads.h"
#include "platform/filter_graph.h"
#include "platform/linux/sound/deck_mixer.h"
#include "platform/linux/sound/libav_graph.h"
#include "platform/linux/sound/open_source.h"
#include "platform/linux/sound/song_measurer.h"
#include "platform/linux/sound/sound_output.h"

namespace nerolith::sound {

/// How the engine fared so far.
struct EngineCounters {
  std::uint64_t clippedSamples = 0;  // cut at full level
  std::uint64_t underRuns = 0;       // the server ran out of sound
  std::uint64_t starvations = 0;     // a decoder came too late for the mix
};

/// Outlives its graphs. Cheap to make: neither disk nor sound server is touched before the first
/// file is rendered. User-interface thread only.
class SoundEngine : public platform::FilterGraphFactory {
 public:
  using OutputMaker = std::function<std::unique_ptr<SoundOutput>(DeckMixer&)>;

  /// Plays through the user's sound server.
  SoundEngine();
  /// With another output, another way to open files, or less patience.
  explicit SoundEngine(const OutputMaker& makeOutput, SourceOpener open = openSource,
                       base::Patience::Limits openPatience = {});

  std::unique_ptr<platform::FilterGraph> createFilterGraph() override;
  std::string soundTrouble() const override;
  double startDelay() const override;
  /// On two to four threads: libav, our own parsers and the system's file calls know no state that
  /// two files share.
  std::unique_ptr<platform::DurationReader> readDurations(std::vector<std::string> paths) override;

  EngineCounters counters() const;

 private:
  base::RetiredThreads retired_;
  base::SpareThreads spare_;
  DeckMixer mixer_;
  std::unique_ptr<SoundOutput> output_;
  DeckSurroundings surroundings_;
  std::shared_ptr<SongMeasurer> measurer_;  // shared with threads that may hang for longer
};

}  // namespace nerolith::sound
