// What the player's rules cost, without a system under them.

#include <benchmark/benchmark.h>

#include <chrono>
#include <string>
#include <vector>

#include "app/program.h"
#include "platform/simulated/simulated_machine.h"
#include "player/random_choice.h"

namespace nerolith {
namespace {

using namespace std::chrono_literals;

/// The worst draw there is: all 10,001 tags are set but one.
void randomDrawOfTheOnlyUnplayed(benchmark::State& state) {
  controls::ListBox box;
  controls::TextBox text1, text2;
  library::SongList songs(box, text1, text2);
  constexpr int kCount = library::SongList::kTagged;
  songs.refill(std::vector<std::string>(kCount, "song.mp3"));
  for (int i = 0; i < kCount; ++i) songs.setPlayed(i, true);
  player::RandomSource random;
  std::int16_t recentCount = 0;
  int only = 0;
  for ([[maybe_unused]] auto _ : state) {
    only = (only + 4999) % kCount;
    songs.setPlayed(only, false);
    const int chosen = player::chooseRandom(songs, kCount, player::drawPosition(random, kCount),
                                            random, {}, recentCount);
    if (chosen != only) state.SkipWithError("drew a played song");
    songs.setPlayed(only, true);
  }
}
BENCHMARK(randomDrawOfTheOnlyUnplayed)->Unit(benchmark::kMicrosecond)->Iterations(2000);

/// The whole player, on a machine in memory: Random over a folder of 10,000 songs, for a day.
void dayOfRandomOverTenThousandSongs(benchmark::State& state) {
  for ([[maybe_unused]] auto _ : state) {
    state.PauseTiming();
    platform::simulated::SimulatedMachine machine;
    machine.recordTrace(false);
    machine.files.addFolder("C:\\Music");
    machine.files.setCurrentDirectory("C:\\Music");
    for (int i = 0; i < 10000; ++i)
      machine.files.addFile("C:\\Music\\song " + std::to_string(i) + ".mp3",
                            {.duration = 150.0 + i % 120});
    app::Program program(machine.doors());
    state.ResumeTiming();
    program.start(",3");
    machine.advance(24h);
    state.PauseTiming();
    int played = 0;
    for (int i = 0; i < 10000; ++i) played += program.songs().played(i) ? 1 : 0;
    state.counters["songs"] = played;
    if (played < 300 || machine.decks.audibleGraphs() == 0) state.SkipWithError("did not play on");
    state.ResumeTiming();
  }
}
BENCHMARK(dayOfRandomOverTenThousandSongs)->Unit(benchmark::kMillisecond)->Iterations(1);

/// One tick of the playback timer over a list of 100,000 with all selected: lamps, counts, time.
void tickWithHundredThousandEntries(benchmark::State& state) {
  platform::simulated::SimulatedMachine machine;
  machine.recordTrace(false);
  app::Program program(machine.doors());
  program.start(",1");
  machine.advance(1s);
  program.mainForm().List1.setItems(std::vector<std::string>(100000, "song.mp3"));
  int position = 0;
  for ([[maybe_unused]] auto _ : state) {
    state.PauseTiming();
    program.mainForm().List1.selectAll();
    program.mainForm().List1.setSelected(position++ % 100000, false);
    state.ResumeTiming();
    program.mainForm().Timer1.tick.raise();
  }
  if (program.mainForm().Label2.caption() != "99999") state.SkipWithError("did not count");
}
BENCHMARK(tickWithHundredThousandEntries)->Unit(benchmark::kMicrosecond)->Iterations(100);

}  // namespace
}  // namespace nerolith
