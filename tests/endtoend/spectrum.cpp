#include "endtoend/spectrum.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstdint>
#include <numbers>

namespace nerolith::endtoend {
namespace {

constexpr double kTau = 2 * std::numbers::pi;

// Four-term Blackman-Harris: its side lobes stay 92 dB down, so that a loud new song does not
// blur the last of a fading one.
std::vector<double> gentleWindow(std::size_t size) {
  std::vector<double> window(size);
  for (std::size_t i = 0; i < size; ++i) {
    const double angle = kTau * (static_cast<double>(i) + 0.5) / static_cast<double>(size);
    window[i] = 0.35875 - 0.48829 * std::cos(angle) + 0.14128 * std::cos(2 * angle) -
                0.01168 * std::cos(3 * angle);
  }
  return window;
}

// Strength of one frequency under a window whose first sample is `start`; outside is silence.
double strength(const Sound& sound, std::int64_t start, const std::vector<double>& window,
                double hertz) {
  const std::complex<double> turn = std::polar(1.0, -kTau * hertz / Sound::kRate);
  std::complex<double> phase = 1, sum = 0;
  double weight = 0;
  for (std::size_t i = 0; i < window.size(); ++i, phase *= turn) {
    weight += window[i];
    const std::int64_t index = start + static_cast<std::int64_t>(i);
    if (index < 0 || index >= static_cast<std::int64_t>(sound.samples.size())) continue;
    sum += phase * (window[i] * sound.samples[static_cast<std::size_t>(index)]);
  }
  return 2 * std::abs(sum) / weight;
}

std::int64_t windowStart(double time, std::size_t size) {
  return static_cast<std::int64_t>(std::lround(time * Sound::kRate)) -
         static_cast<std::int64_t>(size / 2);
}

double decibels(double amplitude) {
  return amplitude < 1e-10 ? Envelope::kNothing : 20 * std::log10(amplitude);
}

}  // namespace

double Envelope::at(double time) const {
  const double place = (time - first) / step;
  if (level.empty() || place < 0 || place > static_cast<double>(level.size() - 1)) return kNothing;
  const auto index = static_cast<std::size_t>(place);
  const double next = index + 1 < level.size() ? level[index + 1] : level[index];
  return std::lerp(level[index], next, place - std::floor(place));
}

Envelope envelopeOf(const Sound& sound, double hertz, double from, double to, double step,
                    double window) {
  const auto shape = gentleWindow(static_cast<std::size_t>(window * Sound::kRate));
  Envelope envelope{step, from, {}};
  const auto count = static_cast<std::size_t>(std::max(0.0, (to - from) / step)) + 1;
  for (std::size_t i = 0; i < count; ++i)
    envelope.level.push_back(
        decibels(strength(sound, windowStart(envelope.timeOf(i), shape.size()), shape, hertz)));
  return envelope;
}

std::vector<Stretch> stretchesAbove(const Envelope& envelope, double threshold, double patience) {
  std::vector<Stretch> found;
  const auto& level = envelope.level;
  // The moment between two values at which the line through them crosses the threshold.
  const auto crossing = [&](std::size_t before) {
    const double share = (threshold - level[before]) / (level[before + 1] - level[before]);
    return envelope.timeOf(before) + share * envelope.step;
  };
  bool inside = false;
  for (std::size_t i = 0; i < level.size(); ++i) {
    const bool above = level[i] >= threshold;
    if (above && !inside) {
      const double from = i == 0 ? envelope.first : crossing(i - 1);
      if (!found.empty() && from - found.back().to < patience)
        found.back().to = envelope.timeOf(i);
      else
        found.push_back({from, envelope.timeOf(i)});
    } else if (!above && inside) {
      found.back().to = crossing(i - 1);
    }
    inside = above;
  }
  if (inside) found.back().to = envelope.timeOf(level.size() - 1);
  return found;
}

std::vector<FallingStep> fallingSteps(const Envelope& envelope, double from, double to,
                                      double least) {
  constexpr double kReach = 0.02;  // a ramp of 10 to 50 ms falls most within these 40 ms
  constexpr double kApart = 0.045;
  std::vector<FallingStep> steps;
  std::vector<double> falls;
  for (double time = from; time <= to; time += envelope.step) {
    const double fall = envelope.at(time - kReach) - envelope.at(time + kReach);
    if (fall < least) continue;
    if (!steps.empty() && time - steps.back().at < kApart) {
      if (fall <= falls.back()) continue;
      steps.pop_back();
      falls.pop_back();
    }
    steps.push_back({time, 0});
    falls.push_back(fall);
  }
  for (std::size_t i = 0; i < steps.size(); ++i) {
    const double next = i + 1 < steps.size() ? steps[i + 1].at : steps[i].at + 0.1;
    steps[i].levelAfter = envelope.at((steps[i].at + next) / 2);
  }
  return steps;
}

double strongestFrequencyAt(const Sound& sound, double time) {
  const auto shape = gentleWindow(static_cast<std::size_t>(0.05 * Sound::kRate));
  const std::int64_t start = windowStart(time, shape.size());
  const auto loudnessAt = [&](double hertz) { return strength(sound, start, shape, hertz); };
  double best = 0, loudest = 0;
  for (double hertz = 200; hertz <= 7000; hertz += 20) {
    const double loudness = loudnessAt(hertz);
    if (loudness > loudest) best = hertz, loudest = loudness;
  }
  if (loudest < 0.01) return 0;
  // The top of the parabola through the logarithms around the best.
  const double left = decibels(loudnessAt(best - 10)), right = decibels(loudnessAt(best + 10));
  const double middle = decibels(loudest);
  return best + 10 * 0.5 * (left - right) / (left - 2 * middle + right);
}

}  // namespace nerolith::endtoend
