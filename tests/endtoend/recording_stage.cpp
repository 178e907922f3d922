#include "endtoend/recording_stage.h"

#include <algorithm>
#include <cmath>

namespace nerolith::endtoend {

void RecordingStage::open(const StoredSettings& settings) {
  stage.open(settings);
  if (file.empty()) file = stage.desktop.scratch() / "take.wav";
  section = std::make_unique<SectionWindow>(stage.desktop, *stage.player);
  section->chooseFile(file);
}

bool RecordingStage::start() {
  section->start();
  pauseFor(0.5);
  return stage.recording->waitForTone(stage.songs.front().hertz, 10);
}

bool RecordingStage::holdsHalves(int halves, double longest) const {
  const auto wanted = static_cast<std::uintmax_t>(44 + halves * (kHalfBytes + 2));
  return waitUntil(longest, [&] {
    std::error_code missing;
    const auto size = std::filesystem::file_size(file, missing);
    return !missing && size >= wanted;
  });
}

double levelAt(const Sound& sound, double hertz, double time) {
  return envelopeOf(sound, hertz, time - 0.05, time + 0.05).at(time);
}

Stretch heardIn(const Sound& sound, const Song& song) {
  const auto stretches =
      stretchesAbove(envelopeOf(sound, song.hertz, 0, sound.length()), kToneLevel - 6, 0.3);
  return stretches.empty() ? Stretch{} : Stretch{stretches.front().from, stretches.back().to};
}

std::vector<double> lostIn(const Sound& recorded, const Sound& card, const Song& song) {
  constexpr double kEdge = 0.1, kSame = 0.1;
  const Stretch here = heardIn(recorded, song);
  const double later = heardIn(card, song).from - here.from;
  const auto played =
      phaseLeaps(card, song.hertz, here.from + later + kEdge, here.to + later - kEdge);
  auto leaps = phaseLeaps(recorded, song.hertz, here.from + kEdge, here.to - kEdge);
  std::erase_if(leaps, [&](double leap) {
    return std::any_of(played.begin(), played.end(),
                       [&](double other) { return std::abs(other - later - leap) < kSame; });
  });
  return leaps;
}

void expect(bool holds, const std::string& what, Complaints& complaints) {
  if (!holds) complaints.push_back(what);
}

}  // namespace nerolith::endtoend
