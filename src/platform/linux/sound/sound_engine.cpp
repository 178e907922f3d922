#include "platform/linux/sound/sound_engine.h"

#include <algorithm>
#include <thread>
#include <utility>

#include "platform/durations_ahead.h"
#include "platform/linux/sound/pulse_output.h"

namespace nerolith::sound {

SoundEngine::SoundEngine()
    : SoundEngine([](DeckMixer& mixer) { return std::make_unique<PulseOutput>(mixer); }) {}

SoundEngine::SoundEngine(const OutputMaker& makeOutput, SourceOpener open,
                         base::Patience::Limits openPatience)
    : output_(makeOutput(mixer_)),
      surroundings_{mixer_, *output_, retired_, open, openPatience},
      measurer_(std::make_shared<SongMeasurer>(std::move(open))) {}

std::unique_ptr<platform::FilterGraph> SoundEngine::createFilterGraph() {
  return std::make_unique<LibavGraph>(surroundings_);
}

std::unique_ptr<platform::DurationReader> SoundEngine::readDurations(
    std::vector<std::string> paths) {
  const std::size_t threads = std::clamp(std::thread::hardware_concurrency(), 2U, 4U);
  auto measure = [measurer = measurer_](const std::string& path, base::JobWatch& watch) {
    return measurer->durationOf(path, watch);
  };
  return std::make_unique<platform::DurationsAhead>(spare_, std::move(paths), std::move(measure),
                                                    threads, surroundings_.openPatience.standstill);
}

std::string SoundEngine::soundTrouble() const { return output_->trouble(); }

double SoundEngine::startDelay() const {
  const std::int64_t underWay = mixer_.mixedFrames() - output_->heardFrames();
  return static_cast<double>(std::max<std::int64_t>(underWay, 0)) / kSampleRate;
}

EngineCounters SoundEngine::counters() const {
  return {mixer_.clippedSamples(), output_->underRuns(), mixer_.starvations()};
}

}  // namespace nerolith::sound
