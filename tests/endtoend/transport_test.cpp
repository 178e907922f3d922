#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "endtoend/stage.h"
#include "endtoend/window_places.h"

namespace nerolith::endtoend {
namespace {

// Opens the player in Single on a song that tells its position.
void openClimb(Stage& stage, double seconds, StoredSettings settings = {}) {
  const Song song = stage.prepareClimb("climb.wav", seconds);
  stage.prepare({"never.wav"}, 1);
  settings.mode = 1;
  stage.open(settings, {toldAs(song.file) + ",1"});
}

// A break that is allowed has edges, which are no clicks of their own.
Complaints clicksOf(const Sound& sound, const std::vector<Stretch>& breaks = {}) {
  auto clicks = clicksIn(sound, 0.3, sound.length(), demands().cut);
  std::erase_if(clicks, [&](const Click& click) {
    return std::any_of(breaks.begin(), breaks.end(), [&](const Stretch& gap) {
      return click.at > gap.from - 0.01 && click.at < gap.to + 0.01;
    });
  });
  return clicks.empty() ? Complaints{} : Complaints{"clicks at " + describe(clicks)};
}

Outcome singleEnds() {
  Stage stage;
  openClimb(stage, 4);
  pauseFor(2);
  if (!stage.recording->waitForSilence(2.0, 10)) return stage.outcome({"it does not end"});
  const Sound sound = stage.recording->sound();
  Complaints complaints = clicksOf(sound);
  if (!climbOf(sound, 0).leaps(0.5).empty()) complaints.push_back("the song begins again");
  return stage.outcome(complaints);
}

TEST(Single, StopsAtTheEndOfTheSong) { measure(singleEnds); }

Outcome singleLoops() {
  Stage stage;
  openClimb(stage, 4, {.loop = true});
  pauseFor(9.5);
  const Sound sound = stage.recording->sound();
  Complaints complaints = clicksOf(sound);
  std::vector<std::string> figures;
  const auto starts = climbOf(sound, 0).leaps(2);
  if (starts.size() < 2) complaints.push_back("it does not begin again");
  for (std::size_t i = 1; i < starts.size(); ++i) {
    const double round = starts[i] - starts[i - 1];
    figures.push_back(figure("from start to start of a song of 4 s", round, "s"));
    if (round < 3.95 || round > 4.25 + demands().mix.opening)
      complaints.push_back("a round takes " + std::to_string(round));
  }
  return stage.outcome(complaints, figures);
}

TEST(Single, WithLoopMixesIntoItself) { measure(singleLoops); }

// The pause itself, and behind it at most the break that the machine under the player makes.
bool isOnePause(const std::vector<Stretch>& silences) {
  if (silences.size() != 2) return silences.size() == 1;
  const Stretch& gap = silences[1];
  return gap.to - gap.from <= demands().resumeGap && gap.to - silences[0].to <= 0.3;
}

Outcome pauseAndResume() {
  Stage stage;
  openClimb(stage, 15);
  pauseFor(2.5);
  stage.player->key("alt+p");
  if (!stage.recording->waitForSilence(0.5, 3)) return stage.outcome({"Pause does not silence"});
  const double silent = stage.recording->now();
  pauseFor(0.5);
  const double resumed = stage.recording->now();
  stage.player->key("alt+r");
  pauseFor(1.5);
  const Sound sound = stage.recording->sound();
  const auto silences = silencesIn(sound, silent - 0.6, sound.length() - 0.1);
  if (!isOnePause(silences)) return stage.outcome({"silences: " + describe(silences)});
  Complaints complaints = clicksOf(sound, {silences.begin() + 1, silences.end()});
  const double before = positionBefore(sound, silences[0].from);
  const double after = positionAfter(sound, silences[0].to);
  if (std::abs(after - before) > demands().resumed)
    complaints.push_back(figure("goes on elsewhere, off by", after - before, "s"));
  return stage.outcome(complaints,
                       {figure("position after less before the pause", after - before, "s"),
                        figure("heard again after", silences[0].to - resumed, "s")});
}

TEST(Transport, ResumeGoesOnWherePauseWas) { measure(pauseAndResume); }

Outcome stop() {
  Stage stage;
  openClimb(stage, 15);
  pauseFor(2.5);
  const double pressed = stage.recording->now();
  stage.player->key("alt+s");
  pauseFor(2);
  const Sound sound = stage.recording->sound();
  const auto silences = silencesIn(sound, pressed, sound.length());
  Complaints complaints = clicksOf(sound);
  if (silences.size() != 1) return stage.outcome({"silences: " + describe(silences)});
  const double took = silences[0].from - pressed;
  if (took > demands().stopped) complaints.push_back(figure("silent only after", took, "s"));
  if (silences[0].to < sound.length() - 0.1) complaints.push_back("it is heard again");
  return stage.outcome(complaints, {figure("silent after", took, "s")});
}

TEST(Transport, StopIsSilentWithin200Milliseconds) { measure(stop); }

Outcome seek() {
  Stage stage;
  openClimb(stage, 15);
  pauseFor(2);
  const Place window = stage.player->place();
  Complaints complaints;
  std::vector<std::string> figures;
  for (const double share : {0.75, 0.25}) {
    const double due = 1 + share * (15 - 1);
    const double clicked = stage.recording->now();
    stage.player->click(places::sliderX(window.width, share), places::kSliderY);
    pauseFor(1.2);
    const Sound sound = stage.recording->sound();
    const Climb climb = climbOf(sound, clicked);
    const auto leaps = climb.leaps(1);
    if (leaps.size() != 1) return stage.outcome({"the click does not seek"});
    const double landed = positionAfter(sound, clicked + leaps[0]);
    figures.push_back(figure("asked for", due, "s") + figure(", landed at", landed, "s") +
                      figure(", heard after", leaps[0], "s"));
    if (std::abs(landed - due) > 1) complaints.push_back(figures.back());
  }
  return stage.outcome(complaints, figures);
}

TEST(Transport, ASeekLandsWithinASecond) { measure(seek); }

}  // namespace
}  // namespace nerolith::endtoend
