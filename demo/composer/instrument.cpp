#include "instrument.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "synthesis.h"

namespace nerolith::demo {
namespace {

constexpr double kTurn = 2.0 * std::numbers::pi;

class Noise {
 public:
  explicit Noise(unsigned seed) : state_(seed * 2654435761U + 1U) {}
  /// -1..1, white.
  double next() {
    state_ = state_ * 1664525U + 1013904223U;
    return static_cast<double>(state_ >> 8U) / 8388608.0 - 1.0;
  }

 private:
  unsigned state_;
};

// One period of a soft saw: few harmonics, so that it neither buzzes nor folds over.
double softSaw(double phase) {
  static const auto kTable = [] {
    std::array<double, 4097> table{};
    for (size_t i = 0; i < table.size(); ++i) {
      for (int harmonic = 1; harmonic <= 7; ++harmonic) {
        table[i] +=
            std::sin(kTurn * harmonic * static_cast<double>(i) / 4096.0) / std::pow(harmonic, 1.7);
      }
    }
    return table;
  }();
  const double place = (phase - std::floor(phase)) * 4096.0;
  const auto index = static_cast<size_t>(place);
  const double share = place - static_cast<double>(index);
  return kTable[index] * (1.0 - share) + kTable[std::min<size_t>(index + 1, 4096)] * share;
}

// Level of a held note: rises, stays, and falls once the key is let go.
double held(double t, double seconds, double rise, double fall) {
  const double up = std::min(1.0, t / rise);
  return t < seconds ? up : up * std::exp(-(t - seconds) / fall);
}

double electricPiano(double t, double f, double seconds, double velocity) {
  const double body =
      std::sin(kTurn * f * t + 1.6 * velocity * std::exp(-4.0 * t) * std::sin(kTurn * f * t));
  const double tine = 0.12 * velocity * std::exp(-18.0 * t) * std::sin(kTurn * 9.0 * f * t);
  const double tremolo = 1.0 + 0.08 * std::sin(kTurn * 4.6 * t);
  return 0.55 * (body + tine) * tremolo * std::exp(-1.3 * t) * held(t, seconds, 0.004, 0.12);
}

double pad(double t, double f, double seconds) {
  const double three =
      softSaw(f * t) + softSaw(f * 1.004 * t + 0.3) + softSaw(f * 0.9955 * t + 0.6);
  return 0.3 * three * held(t, seconds, 0.35, 0.5);
}

double bass(double t, double f, double seconds) {
  const double string = std::sin(kTurn * f * t) +
                        0.35 * std::exp(-5.0 * t) * std::sin(2 * kTurn * f * t) +
                        0.12 * std::exp(-9.0 * t) * std::sin(3 * kTurn * f * t);
  return 0.75 * string * std::exp(-0.9 * t) * held(t, seconds, 0.008, 0.05);
}

double bell(double t, double f, double velocity) {
  const double ring =
      std::sin(kTurn * f * t + 2.2 * velocity * std::exp(-5.0 * t) * std::sin(kTurn * 3.5 * f * t));
  return 0.5 * ring * std::exp(-1.9 * t) * std::min(1.0, t / 0.002);
}

double flute(double t, double f, double seconds, double noise) {
  const double vibrato = 0.004 * std::min(1.0, t / 0.5) / 5.2 * f * std::sin(kTurn * 5.2 * t);
  const double phase = kTurn * f * t + vibrato;
  const double pipe = std::sin(phase) + 0.22 * std::sin(2 * phase) + 0.07 * std::sin(3 * phase);
  return 0.5 * (pipe + 0.03 * noise) * held(t, seconds - 0.03, 0.05, 0.07);
}

double kick(double t) {
  const double phase = 48.0 * t + 85.0 / 28.0 * (1.0 - std::exp(-28.0 * t));
  return std::sin(kTurn * phase) * std::exp(-8.0 * t) * std::min(1.0, t / 0.001);
}

// A string of one period that loses its brightness at every pass.
std::vector<float> pluck(double f, double seconds, double velocity, unsigned seed) {
  const double period = kSampleRate / f - 0.5;
  const auto whole = static_cast<size_t>(period);
  const double share = period - static_cast<double>(whole);  // of a sample, beyond the whole ones
  std::vector<double> string(whole + 1);
  Noise noise(seed);
  double smooth = 0.0;
  for (auto& sample : string) {
    smooth += (0.35 + 0.5 * velocity) * (noise.next() - smooth);
    sample = smooth;
  }
  std::vector<float> sound(static_cast<size_t>((seconds + 0.8) * kSampleRate));
  double previous = 0.0;
  size_t place = 0;
  for (size_t i = 0; i < sound.size(); ++i) {
    const size_t next = (place + 1) % string.size();
    const double now = string[place] * share + string[next] * (1.0 - share);
    string[place] = 0.997 * 0.5 * (now + previous);
    previous = now;
    place = next;
    sound[i] = static_cast<float>(0.8 * now *
                                  held(static_cast<double>(i) / kSampleRate, seconds, 0.001, 0.25));
  }
  return sound;
}

double ringing(Voice voice) {
  switch (voice) {
    case Voice::Pad:
      return 2.0;
    case Voice::Bell:
      return 2.2;
    case Voice::ElectricPiano:
      return 0.7;
    default:
      return 0.4;
  }
}

// `low` and `bright` are the dark and the bright share of one sample of noise.
double struck(Voice voice, double t, double low, double bright) {
  switch (voice) {
    case Voice::Kick:
      return kick(t);
    case Voice::Snare:
      return (low + 0.3 * std::sin(kTurn * 190.0 * t)) * std::exp(-16.0 * t);
    case Voice::Hat:
      return 0.8 * bright * std::exp(-55.0 * t);
    default:
      return bright * std::min(1.0, t / 0.02) * std::exp(-28.0 * t);
  }
}

}  // namespace

std::vector<float> play(Voice voice, double frequency, double seconds, double velocity,
                        unsigned seed) {
  if (voice == Voice::Pluck) {
    return pluck(frequency, seconds, velocity, seed);
  }
  Noise noise(seed);
  double low = 0.0;
  const auto sample = [&](double t) {
    const double white = noise.next();
    low += 0.35 * (white - low);
    switch (voice) {
      case Voice::ElectricPiano:
        return electricPiano(t, frequency, seconds, velocity);
      case Voice::Pad:
        return pad(t, frequency, seconds);
      case Voice::Bass:
        return bass(t, frequency, seconds);
      case Voice::Bell:
        return bell(t, frequency, velocity);
      case Voice::Flute:
        return flute(t, frequency, seconds, low);
      default:
        return struck(voice, t, low, white - low);
    }
  };
  std::vector<float> sound(static_cast<size_t>((seconds + ringing(voice)) * kSampleRate));
  for (size_t i = 0; i < sound.size(); ++i) {
    sound[i] = static_cast<float>(sample(static_cast<double>(i) / kSampleRate));
  }
  return sound;
}

}  // namespace nerolith::demo
