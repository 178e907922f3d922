// Measures the durations of the given files through the real engine, and again, and says how long
// that took, each in milliseconds: "first N again N sum SECONDS". With --graphs before the files,
// each gets a graph instead, once: "graphs N sum SECONDS".

#include <chrono>
#include <cstdio>
#include <cstring>
#include <exception>
#include <string>
#include <vector>

#include "platform/linux/sound/sound_engine.h"

namespace {

using namespace nerolith;

double sumOf(sound::SoundEngine& engine, const std::vector<std::string>& paths) {
  double sum = 0;
  std::size_t done = 0;
  const auto reader = engine.readDurations(paths);
  while (done < paths.size()) {
    for (const double seconds : reader->take()) {
      sum += seconds;
      ++done;
    }
  }
  return sum;
}

double sumOfGraphs(sound::SoundEngine& engine, const std::vector<std::string>& paths) {
  double sum = 0;
  for (const std::string& path : paths) {
    const auto graph = engine.createFilterGraph();
    graph->renderFile(path);
    sum += graph->duration();
  }
  return sum;
}

/// Milliseconds that `work` takes.
template <typename Work>
double timed(double& sum, Work work) {
  const auto began = std::chrono::steady_clock::now();
  sum = work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - began)
      .count();
}

void measure(const std::vector<std::string>& paths, bool graphs) {
  sound::SoundEngine engine;
  double sum = 0;
  if (graphs) {
    std::printf("graphs %.3f", timed(sum, [&] { return sumOfGraphs(engine, paths); }));
  } else {
    std::printf("first %.3f", timed(sum, [&] { return sumOf(engine, paths); }));
    std::printf(" again %.3f", timed(sum, [&] { return sumOf(engine, paths); }));
  }
  std::printf(" sum %.6f\n", sum);
}

}  // namespace

int main(int argc, char** argv) {
  const bool graphs = argc > 1 && std::strcmp(argv[1], "--graphs") == 0;
  try {
    measure({argv + (graphs ? 2 : 1), argv + argc}, graphs);
  } catch (const std::exception& fault) {
    std::fprintf(stderr, "%s\n", fault.what());
    return 1;
  }
}
