// Records what the card plays, as the recording section's window drives it, and says what that
// cost: "cpu_us_a_second N tick_us N worst_tick_us N probe_us N worst_probe_us N missed N
// milliseconds N breaks N". The card plays a steady tone of 441 Hz, which repeats every 100 frames:
// a frame unlike the one 100 before it is a break.

#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

#include "platform/failure.h"
#include "platform/linux/sound/pulse_capture.h"
#include "platform/linux/system/ini_settings_store.h"
#include "platform/linux/system/posix_byte_files.h"
#include "platform/linux/system/posix_output_files.h"
#include "platform/linux/system/system_clock.h"
#include "recording/recorder.h"
#include "recording/wave_repair.h"

namespace {

using namespace nerolith;
using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr int kPeriod = 100;    // frames of the tone
constexpr int kTolerance = 64;  // of 32767: what rounding and the sine's own table may differ
constexpr std::size_t kSettling = 44100;

/// Microseconds that calls took.
struct Times {
  std::vector<double> taken;

  template <typename Call>
  void measure(Call call) {
    const auto began = Clock::now();
    call();
    taken.push_back(std::chrono::duration<double, std::micro>(Clock::now() - began).count());
  }
  long median() {
    if (taken.empty()) return 0;
    std::sort(taken.begin(), taken.end());
    return std::lround(taken[taken.size() / 2]);
  }
  long worst() {
    return taken.empty() ? 0 : std::lround(*std::max_element(taken.begin(), taken.end()));
  }
};

double processorSeconds() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// Places at which the tone is broken, in a file without extra samples.
int breaksIn(const std::string& path) {
  const std::string bytes = platform::readWhole(system::PosixByteFiles(), path);
  std::vector<std::int16_t> samples((bytes.size() - 44) / 2);
  std::memcpy(samples.data(), bytes.data() + 44, samples.size() * 2);
  int breaks = 0;
  std::size_t passed = 0;
  for (std::size_t frame = kSettling; 2 * frame + 1 < samples.size(); ++frame) {
    const int change = samples[2 * frame] - samples[2 * (frame - kPeriod)];
    if (std::abs(change) <= kTolerance || frame < passed) continue;
    ++breaks;
    passed = frame + std::size_t{2} * kPeriod;
  }
  if (samples.size() / 2 <= kSettling || *std::max_element(samples.begin(), samples.end()) < 8000)
    throw platform::Failure("no tone was recorded");
  return breaks;
}

void record(double seconds, const std::string& path) {
  sound::PulseCapture capture;
  system::PosixOutputFiles files;
  system::SystemClock clock;
  system::IniSettingsStore settings;
  recording::UnfinishedRecording unfinished(settings);
  recording::recordsound2file recorder({capture, files, clock, unfinished});
  recorder.filename(path);
  recorder.Start_Recording();
  Times ticks, probes;
  const auto began = Clock::now();
  const double spent = processorSeconds();
  const auto rounds = static_cast<int>(seconds * 10);
  for (int round = 1; round <= rounds; ++round) {
    std::this_thread::sleep_until(began + round * milliseconds(100));
    probes.measure([&] { recorder.probesound(); });
    if (round % 5 != 0) continue;
    const std::int32_t before = recorder.Filesize();
    Times one;
    one.measure([&] { recorder.timer_Event500ms(); });
    if (recorder.Filesize() != before) ticks.taken.push_back(one.taken.front());
  }
  const double cost = processorSeconds() - spent;
  const double lasted = std::chrono::duration<double>(Clock::now() - began).count();
  const std::string trouble = recorder.trouble();
  recorder.Stop_Recording();
  if (!trouble.empty()) throw platform::Failure(trouble);
  const std::string copy = path + ".standard";
  const auto sound = recording::writeStandardCopy(system::PosixByteFiles(), files, path, copy);
  std::printf(
      "cpu_us_a_second %ld tick_us %ld worst_tick_us %ld probe_us %ld worst_probe_us %ld "
      "missed %d milliseconds %ld breaks %d\n",
      std::lround(cost / lasted * 1e6), ticks.median(), ticks.worst(), probes.median(),
      probes.worst(), static_cast<int>(recorder.missedHalves()),
      static_cast<long>(sound * 1000 / 176400), breaksIn(copy));
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("recording SECONDS FILE\n", stderr);
    return 2;
  }
  try {
    record(std::atof(argv[1]), argv[2]);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "recording: %s\n", failure.what());
    return 1;
  }
}
