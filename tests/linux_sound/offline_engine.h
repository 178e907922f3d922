// The whole engine on a clock that the test turns.
#pragma once

#include <memory>
#include <string>

#include "linux_sound/manual_output.h"
#include "linux_sound/scratch.h"
#include "linux_sound/wave_file.h"
#include "platform/linux/sound/sound_engine.h"

namespace nerolith::sound_tests {

struct OfflineEngine {
  Scratch scratch;
  ManualOutput* output = nullptr;
  sound::SoundEngine engine{[this](sound::DeckMixer& mixer) {
    auto made = std::make_unique<ManualOutput>(mixer);
    output = made.get();
    return made;
  }};

  std::string file(const std::string& name, const std::vector<Frame>& frames,
                   int rate = sound::kSampleRate) {
    const std::string path = scratch / name;
    writeWave(path, frames, rate);
    return path;
  }
  std::unique_ptr<platform::FilterGraph> rendered(const std::string& path) {
    auto graph = engine.createFilterGraph();
    graph->renderFile(path);
    return graph;
  }
};

}  // namespace nerolith::sound_tests
