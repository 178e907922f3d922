// Plays two songs over each other through the real engine for a number of seconds, and says how
// often the sound ran dry: "underruns N starvations N clipped N".

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <thread>

#include "platform/failure.h"
#include "platform/linux/sound/sound_engine.h"

namespace {

using namespace nerolith;

void playFor(double seconds, const char* first, const char* second) {
  sound::SoundEngine engine;
  const char* files[] = {first, second};
  std::unique_ptr<platform::FilterGraph> decks[2];
  const auto until = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
  while (std::chrono::steady_clock::now() < until) {
    for (int i = 0; i < 2; ++i) {
      if (decks[i] && decks[i]->currentPosition() < decks[i]->duration() - 0.5) continue;
      decks[i] = engine.createFilterGraph();
      decks[i]->renderFile(files[i]);
      decks[i]->setVolume(-600);
      decks[i]->run();
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
  }
  const sound::EngineCounters counters = engine.counters();
  std::printf("underruns %llu starvations %llu clipped %llu\n",
              static_cast<unsigned long long>(counters.underRuns),
              static_cast<unsigned long long>(counters.starvations),
              static_cast<unsigned long long>(counters.clippedSamples));
  const std::string trouble = engine.soundTrouble();
  if (!trouble.empty()) throw platform::Failure(trouble);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fputs("steady_play SECONDS FILE FILE\n", stderr);
    return 2;
  }
  try {
    playFor(std::atof(argv[1]), argv[2], argv[3]);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "steady_play: %s\n", failure.what());
    return 1;
  }
}
