#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iomanip>
#include <numbers>
#include <sstream>

#include "endtoend/spectrum.h"

namespace nerolith::endtoend {
namespace {

constexpr int kHalf = 110;  // taps on each side of the filter's middle

// A linear-phase filter that passes what lies between two frequencies and nothing else.
std::vector<float> bandPass(double low, double high) {
  std::vector<float> taps;
  for (int i = -kHalf; i <= kHalf; ++i) {
    const double x = std::numbers::pi * i;
    const auto sinc = [&](double hertz) {
      const double share = 2 * hertz / Sound::kRate;
      return i == 0 ? share : std::sin(x * share) / x;
    };
    const double place = std::numbers::pi * i / (kHalf + 1);
    const double window = 0.35875 + 0.48829 * std::cos(place) + 0.14128 * std::cos(2 * place) +
                          0.01168 * std::cos(3 * place);
    taps.push_back(static_cast<float>((sinc(high) - sinc(low)) * window));
  }
  return taps;
}

std::int64_t sampleAt(const Sound& sound, double time) {
  const auto last = static_cast<std::int64_t>(sound.samples.size());
  return std::clamp<std::int64_t>(std::llround(time * Sound::kRate), 0, last);
}

float filtered(const Sound& sound, std::int64_t middle, const std::vector<float>& taps) {
  const float* samples = sound.samples.data() + middle - kHalf;
  float sum = 0;
  for (std::size_t i = 0; i < taps.size(); ++i) sum += taps[i] * samples[i];
  return sum;
}

}  // namespace

std::vector<Click> clicksIn(const Sound& sound, double from, double to, double threshold) {
  static const std::vector<float> taps = bandPass(8000, 16000);
  std::vector<Click> clicks;
  const std::int64_t end = sampleAt(sound, std::min(to, sound.length())) - kHalf;
  for (std::int64_t i = sampleAt(sound, from) + kHalf; i < end; ++i) {
    const double peak = std::abs(filtered(sound, i, taps));
    if (peak < threshold) continue;
    const double time = static_cast<double>(i) / Sound::kRate;
    if (!clicks.empty() && time - clicks.back().at < 0.02)
      clicks.back().peak = std::max(clicks.back().peak, peak);
    else
      clicks.push_back({time, peak});
  }
  return clicks;
}

std::vector<Stretch> silencesIn(const Sound& sound, double from, double to, double threshold) {
  constexpr std::int64_t kWindow = Sound::kRate * 4 / 1000;
  std::vector<Stretch> silences;
  const std::int64_t end = sampleAt(sound, to) - kWindow;
  const double least = threshold * threshold * kWindow;
  for (std::int64_t i = sampleAt(sound, from); i <= end; i += kWindow / 8) {
    double power = 0;
    for (std::int64_t j = i; j < i + kWindow; ++j) {
      const double sample = sound.samples[static_cast<std::size_t>(j)];
      power += sample * sample;
    }
    if (power >= least) continue;
    const double start = static_cast<double>(i) / Sound::kRate;
    const double stop = static_cast<double>(i + kWindow) / Sound::kRate;
    if (!silences.empty() && start <= silences.back().to)
      silences.back().to = stop;
    else
      silences.push_back({start, stop});
  }
  return silences;
}

std::string describe(const std::vector<Stretch>& stretches) {
  std::ostringstream text;
  text << std::fixed << std::setprecision(3);
  for (const Stretch& stretch : stretches)
    text << "[" << stretch.from << " s to " << stretch.to << " s] ";
  return stretches.empty() ? "none" : text.str();
}

std::string describe(const std::vector<Click>& clicks) {
  std::ostringstream text;
  text << std::fixed << std::setprecision(4);
  for (const Click& click : clicks) text << "[" << click.at << " s, peak " << click.peak << "] ";
  return clicks.empty() ? "none" : text.str();
}

}  // namespace nerolith::endtoend
