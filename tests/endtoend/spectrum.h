// Sound as numbers, and what the tests measure in it.
#pragma once

#include <string>
#include <vector>

namespace nerolith::endtoend {

/// One channel, full scale is 1. Times are seconds from its first sample.
struct Sound {
  static constexpr int kRate = 44100;
  std::vector<float> samples;

  double length() const { return static_cast<double>(samples.size()) / kRate; }
};

/// How loud one frequency is over time, in decibels; a sine that reaches full scale is 0.
struct Envelope {
  static constexpr double kNothing = -200;  // where the sound has ended or not begun

  double step = 0.01;         // seconds from one value to the next
  double first = 0;           // time of the first value
  std::vector<double> level;  // each seen through a window around its time

  double at(double time) const;  // linear in between
  double timeOf(std::size_t index) const { return first + step * static_cast<double>(index); }
};

/// The window is 25 ms unless told otherwise: half the level within 5 ms of where it changes, and
/// blind to other tones (below -90 dB) that are 160 Hz or more away.
Envelope envelopeOf(const Sound& sound, double hertz, double from, double to, double step = 0.01,
                    double window = 0.025);

/// A stretch in which a tone is heard.
struct Stretch {
  double from = 0;
  double to = 0;
};

/// Where the envelope is above `threshold` (decibels); holes shorter than `patience` seconds are
/// bridged. A sharp edge at t is found at t when the threshold lies 6 dB below the tone.
std::vector<Stretch> stretchesAbove(const Envelope& envelope, double threshold,
                                    double patience = 0);

/// One step down of a stair: when its steepest point is, and the level half-way to the next step.
struct FallingStep {
  double at = 0;
  double levelAfter = 0;
};

/// The steps of at least `least` decibels between two times; falls closer than 45 ms are one.
std::vector<FallingStep> fallingSteps(const Envelope& envelope, double from, double to,
                                      double least = 1.0);

/// Moments at which the sound has energy between 8 and 16 kHz above `threshold`, where neither
/// the songs nor the control tone have any: broken waves of any kind. Nearer than 20 ms counts
/// as one. A jump of J between two samples shows as about 0.2 J.
struct Click {
  double at = 0;
  double peak = 0;
};
std::vector<Click> clicksIn(const Sound& sound, double from, double to, double threshold = 0.002);

/// Stretches in which every 4 ms have a root mean square below `threshold`.
std::vector<Stretch> silencesIn(const Sound& sound, double from, double to,
                                double threshold = 0.02);

/// The strongest frequency between 200 and 7000 Hz in the 50 ms around `time`; 0 when quieter than
/// -40 dB.
double strongestFrequencyAt(const Sound& sound, double time);

std::string describe(const std::vector<Stretch>& stretches);
std::string describe(const std::vector<Click>& clicks);

}  // namespace nerolith::endtoend
