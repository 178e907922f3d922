#include "platform/linux/sound/sound_engine.h"

#include <algorithm>
#include <utility>

#include "platform/linux/sound/pulse_output.h"

namespace nerolith::sound {

SoundEngine::SoundEngine()
    : SoundEngine([](DeckMixer& mixer) { return std::make_unique<PulseOutput>(mixer); }) {}

SoundEngine::SoundEngine(const OutputMaker& makeOutput, SourceOpener open,
                         std::chrono::milliseconds openPatience)
    : output_(makeOutput(mixer_)),
      surroundings_{mixer_, *output_, retired_, std::move(open), openPatience} {}

std::unique_ptr<platform::FilterGraph> SoundEngine::createFilterGraph() {
  return std::make_unique<LibavGraph>(surroundings_);
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
