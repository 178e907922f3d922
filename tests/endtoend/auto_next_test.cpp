#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include "endtoend/stage.h"

namespace nerolith::endtoend {
namespace {

Outcome fiveSongsMix() {
  Stage stage;
  stage.prepare({"1 first.wav", "2 second.mp3", "3 third.mp2", "4 fourth.aif", demands().lastMixed},
                8);
  stage.open({.mode = 2, .mixLead = 4, .fadeLength = 2});
  if (!stage.recording->waitForTone(stage.songs.back().hertz, 50))
    return stage.outcome({"the last song is not reached"});
  stage.recording->waitForSilence(1.0, 15);
  Complaints complaints;
  const Sound sound = stage.recording->sound();
  auto figures = checkMixes(sound, mixed(stage.songs), {4, 2}, complaints, demands().mix);
  for (const int times : timesHeard(sound, stage.songs))
    if (times != 1) complaints.push_back("a song is heard " + std::to_string(times) + " times");
  return stage.outcome(complaints, figures);
}

TEST(AutoNext, EachSongMixesIntoTheNextAlongTheSpecifiedLine) { measure(fiveSongsMix); }

Outcome everyThirdIsBroken() {
  Stage stage;
  stage.prepare({"1.wav", "2.mp3", "4.wav", "5.aif", "7.mp2", "8.wma"}, 3);
  const auto& folder = stage.desktop.music();
  std::ofstream(folder / "3.mp3") << "This is a text and no song.\n";
  std::ofstream(folder / "6.wav").flush();  // an empty one
  std::ofstream(folder / "9.mp3") << std::string(5000, '\0');
  stage.open({.mode = 2, .mixLead = 1, .fadeLength = 0.5});
  if (!stage.recording->waitForSound(10)) return stage.outcome({"nothing is heard"});
  int windows = 1;
  while (!stage.recording->waitForSilence(1.0, 0.2) && stage.recording->now() < 40)
    windows = std::max(windows, stage.player->countTitles("."));
  const Sound sound = stage.recording->sound();
  Complaints complaints;
  for (const int times : timesHeard(sound, stage.songs))
    if (times != 1)
      complaints.push_back("a whole song is heard " + std::to_string(times) + " times");
  if (orderHeard(sound, stage.songs) != std::vector<std::size_t>{0, 1, 2, 3, 4, 5})
    complaints.push_back("the songs are out of order");
  if (windows != 1) complaints.push_back("another window came up");
  return stage.outcome(complaints);
}

TEST(AutoNext, AFolderWithBrokenFilesPlaysOnWithoutAWord) { measure(everyThirdIsBroken); }

}  // namespace
}  // namespace nerolith::endtoend
