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
  stage.prepare(twentyNames(), 2.5);
  stage.open({.mode = 3, .mixLead = 1.2, .fadeLength = 0.5});
  if (!stage.recording->waitForSound(10)) return stage.outcome({"nothing is heard"});
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
  std::vector<MixedSong> played;
  for (const std::size_t song : order) played.push_back(mixed(stage.songs)[song]);
  auto late = lateStarts(sound, played, 1.2);
  std::sort(late.begin(), late.end());
  const MixTolerance mix = demands().mix;
  if (late.front() < -mix.start || late.back() > mix.start + mix.opening)
    complaints.push_back(figure("a song starts off by", late.back(), "s"));
  const auto clicks = clicksIn(sound, 0.3, sound.length(), demands().cut);
  if (!clicks.empty()) complaints.push_back("clicks at " + describe(clicks));
  return stage.outcome(complaints, {figure("starts are late by", late.front(), "s at least") +
                                    figure(", half of them by", late[late.size() / 2], "s") +
                                    figure(", the latest by", late.back(), "s")});
}

TEST(Random, PlaysEachOfTwentySongsOnceBeforeItStops) { measure(twentySongs); }

}  // namespace
}  // namespace nerolith::endtoend
