#include "endtoend/mix_check.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <sstream>

#include "endtoend/tones.h"

namespace nerolith::endtoend {
namespace {

template <class... Words>
std::string sentence(const Words&... words) {
  std::ostringstream text;
  text << std::fixed << std::setprecision(3);
  (text << ... << words);
  return text.str();
}

// The released deck is one step past -50 dB away; below this nothing of it is left.
constexpr double kGone = -53;

// The first audible moment of a song; negative when there is none.
double startOf(const Sound& sound, const MixedSong& song) {
  const auto heard =
      stretchesAbove(envelopeOf(sound, song.hertz, 0, sound.length(), 0.005), kToneLevel - 6, 0.1);
  return heard.empty() ? -1 : heard.front().from;
}

double lateness(const MixedSong& old, double oldStart, const MixedSong& next, double nextStart,
                double lead) {
  return nextStart - next.attack - (oldStart - old.attack + old.length - lead);
}

class MixChecker {
 public:
  MixChecker(const Sound& sound, const MixSettings& settings, const MixTolerance& tolerance,
             Complaints& complaints)
      : sound_(sound), settings_(settings), tolerance_(tolerance), complaints_(complaints) {}

  std::string check(const MixedSong& old, double oldStart, const MixedSong& next,
                    double nextStart) {
    const double late = lateness(old, oldStart, next, nextStart, settings_.lead);
    if (late < -tolerance_.start || late > tolerance_.start + tolerance_.opening)
      complain(old, next, sentence("starts ", late, " s off"));
    // As the volume steps tell it.
    const double began = nextStart - next.attack - tolerance_.newSongLag;
    const Envelope fade =
        envelopeOf(sound_, old.hertz, began - 0.5, began + settings_.length + 1.5, 0.005);
    const double drift = checkSteps(old, next, fade, began);
    const double gone = checkGone(old, next, fade, began);
    return sentence(old.name, " > ", next.name, ": start ", late * 1000,
                    " ms off, first step after ", wait_ * 1000, " ms, ", steps_,
                    " steps, worst level ", worst_, " dB, worst step time ", drift * 1000,
                    " ms, gone after ", gone, " s");
  }

 private:
  void complain(const MixedSong& old, const MixedSong& next, const std::string& what) {
    complaints_.push_back(old.name + " into " + next.name + ": " + what);
  }

  // Returns how far the worst step is from a steady beat.
  double checkSteps(const MixedSong& old, const MixedSong& next, const Envelope& fade,
                    double began) {
    const double step = 5000 / (settings_.length * 10 + 1);
    const double full = fade.at(began - 0.1 - tolerance_.lagJitter);
    auto steps = fallingSteps(fade, began - 0.1 - tolerance_.lagJitter,
                              began + settings_.length + 1.0, std::min(1.0, step / 200));
    worst_ = 0;
    steps_ = 0;
    double hundredths = 0, drift = 0;
    if (steps.empty()) {
      complain(old, next, "does not fade");
      return 0;
    }
    if (std::abs(full - kToneLevel) > tolerance_.level)
      complain(old, next, sentence("is at ", full, " dB before it fades"));
    wait_ = steps.front().at - began;
    // A file that took long to open held up a tick: the first two steps come together.
    if (tolerance_.opening > 0 &&
        std::abs(steps.front().levelAfter - full + 2 * step / 100) < tolerance_.level)
      steps.insert(steps.begin(), {steps.front().at - 0.1, full - step / 100});
    if (wait_ < -tolerance_.lagJitter || wait_ > tolerance_.firstStep + tolerance_.lagJitter)
      complain(old, next, sentence("takes its first step ", wait_, " s after the start"));
    // The beat that fits best: half of the jitter goes to either side of it.
    double lead = 0, lag = 0;
    for (std::size_t n = 0; n < steps.size(); ++n) {
      hundredths = std::nearbyint(hundredths - step);
      if (hundredths / 100 < tolerance_.lowest) break;
      const double off = steps[n].levelAfter - full - hundredths / 100;
      if (std::abs(off) > std::abs(worst_)) worst_ = off;
      const double time = steps[n].at - steps.front().at - 0.1 * static_cast<double>(n);
      lead = std::min(lead, time), lag = std::max(lag, time);
      ++steps_;
    }
    drift = (lag - lead) / 2;
    const int due = static_cast<int>(-tolerance_.lowest * 100 / step);
    if (std::abs(worst_) > tolerance_.level)
      complain(old, next, sentence("leaves the line of the fade by ", worst_, " dB"));
    if (steps_ < due) complain(old, next, sentence("takes ", steps_, " steps of ", due));
    if (drift > tolerance_.stepTime)
      complain(old, next, sentence("steps ", drift, " s off the beat"));
    return drift;
  }

  double checkGone(const MixedSong& old, const MixedSong& next, const Envelope& fade,
                   double began) {
    const double step = 5000 / (settings_.length * 10 + 1);
    const double due = 0.1 * (std::floor(5000 / std::nearbyint(step)) + 1);
    const auto heard = stretchesAbove(fade, kToneLevel + kGone);
    const double gone = heard.empty() ? -1 : heard.back().to - began;
    if (std::abs(gone - due) > tolerance_.gone + tolerance_.lagJitter)
      complain(old, next, sentence("is gone after ", gone, " s instead of ", due));
    return gone;
  }

  const Sound& sound_;
  const MixSettings settings_;
  const MixTolerance tolerance_;
  Complaints& complaints_;
  double worst_ = 0;
  double wait_ = 0;
  int steps_ = 0;
};

}  // namespace

std::vector<std::string> checkMixes(const Sound& sound, const std::vector<MixedSong>& songs,
                                    const MixSettings& settings, Complaints& complaints,
                                    const MixTolerance& tolerance) {
  MixChecker checker(sound, settings, tolerance, complaints);
  std::vector<std::string> figures;
  std::vector<double> starts;
  for (const MixedSong& song : songs) {
    starts.push_back(startOf(sound, song));
    if (starts.back() < 0) {
      complaints.push_back(song.name + " is not heard");
      return figures;
    }
  }
  for (std::size_t i = 0; i + 1 < songs.size(); ++i)
    figures.push_back(checker.check(songs[i], starts[i], songs[i + 1], starts[i + 1]));

  const double from = starts.front() + 0.05;
  const double to = starts.back() - songs.back().attack + songs.back().length - 0.35;
  const auto silences = silencesIn(sound, from, std::min(to, sound.length()));
  if (!silences.empty()) complaints.push_back("silent at " + describe(silences));
  const auto clicks = clicksIn(sound, from - 0.2, to + 0.5, tolerance.click);
  if (!clicks.empty()) complaints.push_back("clicks at " + describe(clicks));
  return figures;
}

std::vector<double> lateStarts(const Sound& sound, const std::vector<MixedSong>& songs,
                               double lead) {
  constexpr double kAnHour = 3600;
  std::vector<double> starts, late;
  for (const MixedSong& song : songs) starts.push_back(startOf(sound, song));
  for (std::size_t i = 0; i + 1 < songs.size(); ++i)
    late.push_back(starts[i] < 0 || starts[i + 1] < 0
                       ? kAnHour
                       : lateness(songs[i], starts[i], songs[i + 1], starts[i + 1], lead));
  return late;
}

}  // namespace nerolith::endtoend
