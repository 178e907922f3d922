#include <gtest/gtest.h>

#include <algorithm>

#include "endtoend/stage.h"

namespace nerolith::endtoend {
namespace {

std::vector<std::string> twentyNames() {
  std::vector<std::string> names;
  for (int i = 1; i <= 20; ++i) names.push_back((i < 10 ? "0" : "") + std::to_string(i) + ".wav");
  return names;
}

Outcome twentySongs() {
  Stage stage;
  stage.prepare(twentyNames(), 3);
  stage.open({.mode = 3, .mixLead = 1, .fadeLength = 0.5});
  if (!stage.recording->waitForSilence(2.0, 70)) return stage.outcome({"it never stops"});
  const Sound sound = stage.recording->sound();
  Complaints complaints;
  const auto times = timesHeard(sound, stage.songs);
  for (std::size_t i = 0; i < times.size(); ++i)
    if (times[i] != 1)
      complaints.push_back("song " + std::to_string(i + 1) + " is heard " +
                           std::to_string(times[i]) + " times");
  const auto order = orderHeard(sound, stage.songs);
  if (std::is_sorted(order.begin(), order.end())) complaints.push_back("it is not random");
  const auto clicks = clicksIn(sound, 0.3, sound.length());
  if (!clicks.empty()) complaints.push_back("clicks at " + describe(clicks));
  return stage.outcome(complaints);
}

TEST(Random, PlaysEachOfTwentySongsOnceBeforeItStops) { measure(twentySongs); }

}  // namespace
}  // namespace nerolith::endtoend
