#include <algorithm>
#include <fstream>
#include <stdexcept>

#include "endtoend/private_desktop.h"
#include "endtoend/tones.h"
#include "endtoend/wait_until.h"

namespace nerolith::endtoend {
namespace {

constexpr double kControlLevel = -40;
constexpr std::uintmax_t kFrame = 2 * sizeof(float);

// Long enough for the longest test; a file, so that nothing but the machine can hold it up.
std::filesystem::path controlFile(const std::filesystem::path& folder) {
  const auto file = folder / "control.raw";
  if (std::filesystem::exists(file)) return file;
  Sound sound = tone(kControlHertz, 150);
  for (float& sample : sound.samples) sample *= 0.04F;
  std::ofstream(file, std::ios::binary)
      .write(reinterpret_cast<const char*>(sound.samples.data()),
             static_cast<std::streamsize>(sound.samples.size() * sizeof(float)));
  return file;
}

Sound read(const std::filesystem::path& file, std::uintmax_t firstFrame) {
  Sound sound;
  std::ifstream stream(file, std::ios::binary);
  stream.seekg(static_cast<std::streamoff>(firstFrame * kFrame));
  std::vector<float> both(1 << 16);
  while (stream) {
    stream.read(reinterpret_cast<char*>(both.data()),
                static_cast<std::streamsize>(both.size() * sizeof(float)));
    const auto frames = static_cast<std::size_t>(stream.gcount()) / kFrame;
    for (std::size_t i = 0; i < frames; ++i)
      sound.samples.push_back((both[2 * i] + both[2 * i + 1]) / 2);
  }
  return sound;
}

}  // namespace

Recording::Recording(const PrivateDesktop& desktop, const std::string& name)
    : file_(desktop.scratch() / (name + ".raw")) {
  const auto tone = controlFile(desktop.scratch());
  controlTone_ = std::make_unique<ChildProcess>(
      desktop.command({"pacat", "--raw", "--rate=44100", "--channels=1", "--format=float32le",
                       "--latency-msec=90", "--device=card", tone.string()}));
  recorder_ = std::make_unique<ChildProcess>(
      desktop.command({"parec", "--raw", "--rate=44100", "--channels=2", "--format=float32le",
                       "--latency-msec=30", "--device=card.monitor", file_.string()}));
  // The control tone has to be there before anything is measured.
  const bool heard = waitUntil(10, [&] {
    const Sound newest = sound();
    return newest.length() > 0.3 &&
           envelopeOf(newest, kControlHertz, newest.length() - 0.1, newest.length() - 0.1)
                   .level[0] > kControlLevel - 3;
  });
  if (!heard) throw std::runtime_error("the card's sound cannot be recorded");
}

Sound Recording::sound() const { return read(file_, 0); }

double Recording::now() const {
  std::error_code missing;
  const auto size = std::filesystem::file_size(file_, missing);
  const std::uintmax_t frames = missing ? 0 : size / kFrame;
  return static_cast<double>(frames) / Sound::kRate;
}

bool Recording::waitForTone(double hertz, double longest) const {
  return waitUntil(longest, [&] {
    const double end = now();
    if (end < 0.1) return false;
    const Sound newest = read(file_, static_cast<std::uintmax_t>((end - 0.05) * Sound::kRate));
    return envelopeOf(newest, hertz, 0.025, 0.025).level[0] > kToneLevel - 6;
  });
}

bool Recording::waitForSound(double longest) const {
  return waitUntil(longest, [&] {
    const double end = now();
    if (end < 0.1) return false;
    const Sound newest = read(file_, static_cast<std::uintmax_t>((end - 0.05) * Sound::kRate));
    return silencesIn(newest, 0, newest.length()).empty();
  });
}

bool Recording::waitForSilence(double quietFor, double longest) const {
  return waitUntil(longest, [&] {
    const double end = now();
    if (end < quietFor) return false;
    const Sound newest = read(file_, static_cast<std::uintmax_t>((end - quietFor) * Sound::kRate));
    const auto silences = silencesIn(newest, 0, newest.length());
    return silences.size() == 1 && silences[0].to - silences[0].from > quietFor - 0.02;
  });
}

std::vector<Stretch> controlGaps(const Sound& sound, double from, double to) {
  const Envelope envelope = envelopeOf(sound, kControlHertz, from, to, 0.002, 0.012);
  std::vector<Stretch> gaps;
  double heardUntil = from;
  for (const Stretch& heard : stretchesAbove(envelope, kControlLevel - 3)) {
    if (heard.from - heardUntil > 0.001) gaps.push_back({heardUntil, heard.from});
    heardUntil = heard.to;
  }
  if (to - heardUntil > 0.004) gaps.push_back({heardUntil, to});
  return gaps;
}

}  // namespace nerolith::endtoend
