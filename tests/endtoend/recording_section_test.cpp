// What the recording section writes while the real program plays, measured in its file.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>

#include "endtoend/recorded_wave.h"
#include "endtoend/section_window.h"
#include "endtoend/shipped_program.h"
#include "endtoend/stage.h"
#include "endtoend/window_places.h"

namespace nerolith::endtoend {
namespace {

/// A stage with the recording section open and a file chosen.
struct RecordingStage {
  Stage stage;
  std::filesystem::path file;
  std::unique_ptr<SectionWindow> section;

  void open(const StoredSettings& settings) {
    stage.open(settings);
    file = stage.desktop.scratch() / "take.wav";
    section = std::make_unique<SectionWindow>(stage.desktop, *stage.player);
    section->chooseFile(file);
  }
  /// Starts playing and recording; whether the first song is heard.
  bool start() {
    section->start();
    pauseFor(0.5);
    return stage.recording->waitForTone(stage.songs.front().hertz, 10);
  }
  /// The part of the recording before the song that is heard last begins to fade out.
  static Sound beforeTheLastFade(Sound sound, const Song& last, double begun, double lead) {
    const double end = begun - last.attack + last.length - lead - 0.3;
    sound.samples.resize(
        std::min(sound.samples.size(), static_cast<std::size_t>(end * Sound::kRate)));
    return sound;
  }
};

double levelAt(const Sound& sound, double hertz, double time) {
  return envelopeOf(sound, hertz, time - 0.05, time + 0.05).at(time);
}

/// Where a song's tone begins and ends; nothing heard: {0, 0}.
Stretch heardIn(const Sound& sound, const Song& song) {
  const auto stretches =
      stretchesAbove(envelopeOf(sound, song.hertz, 0, sound.length()), kToneLevel - 6, 0.3);
  return stretches.empty() ? Stretch{} : Stretch{stretches.front().from, stretches.back().to};
}

void expect(bool holds, const std::string& what, Complaints& complaints) {
  if (!holds) complaints.push_back(what);
}

Outcome minuteOfMixing() {
  RecordingStage it;
  constexpr double kLead = 31, kFade = 30;
  it.stage.prepare({"1 first.wav", "2 second.wav", "3 third.wav"}, 64);
  // Rows to scroll through, which are never played.
  for (int i = 0; i < 400; ++i)
    std::ofstream(it.stage.desktop.music() / ("4 row " + std::to_string(i) + ".mp3"));
  it.open({.mode = 2, .mixLead = kLead, .fadeLength = kFade});
  Complaints complaints;
  if (!it.start()) return it.stage.outcome({"the first song is not heard"});
  const double begun = it.stage.recording->now();
  for (bool down = true; it.stage.recording->now() < begun + 64 - kLead + 62; down = !down) {
    for (int i = 0; i < 40; ++i) it.stage.player->click(400, 450, down ? 5 : 4);
    pauseFor(0.2);
  }
  it.section->exit();
  expect(waitForFinishedFile(it.file, 5), "the file is not finished by Exit", complaints);
  const RecordedWave wave = readRecorded(it.file, complaints);
  const Song& second = it.stage.songs[1];
  const double from = heardIn(wave.sound, second).from + 0.1;
  expect(wave.seconds() > from + 60, "less than a minute of the second song", complaints);
  const auto leaps = phaseLeaps(wave.sound, second.hertz, from, from + 60);
  if (!leaps.empty())
    complaints.push_back(std::to_string(leaps.size()) + " breaks in a steady tone, the first at " +
                         std::to_string(leaps.front()) + " s");
  for (const double time : {from + 1, from + 10, from + 20, from + 29})
    expect(std::abs(levelAt(wave.sound, second.hertz, time) - kToneLevel) < 0.3,
           "the second song's level is not its own", complaints);
  for (const double time : {from + 1, from + 10, from + 15})
    expect(levelAt(wave.sound, it.stage.songs[0].hertz, time) > -60,
           "the other deck is not heard beside it", complaints);
  return it.stage.outcome(complaints,
                          {figure("recorded", wave.seconds(), "s"),
                           figure("breaks in 60 s", static_cast<double>(leaps.size()), "")});
}

TEST(RecordingSection, LosesNothingInAMinuteWhileBothDecksPlayAndTheListIsScrolled) {
  measure(minuteOfMixing);
}

/// Plays the songs to the end of the list; the recording has to end by itself.
Outcome endsWithTheList(int mode) {
  RecordingStage it;
  constexpr double kLead = 4, kFade = 2;
  it.stage.prepare({"1 first.wav", "2 second.wav", "3 third.wav"}, 10);
  it.open({.mode = mode, .mixLead = kLead, .fadeLength = kFade});
  // What the card still has of a song that plays already would be the file's beginning.
  it.stage.player->click(places::kStopX, places::kStopY);
  it.stage.recording->waitForSilence(0.5, 5);
  it.section->start();
  Complaints complaints;
  if (!waitForFinishedFile(it.file, 50))
    return it.stage.outcome({"the recording does not end with the list"});
  const RecordedWave wave = readRecorded(it.file, complaints);
  const auto order = orderHeard(wave.sound, it.stage.songs);
  if (order.size() != 3) return it.stage.outcome({"not all the songs are recorded"});
  std::vector<Song> played;
  for (const std::size_t song : order) played.push_back(it.stage.songs[song]);
  const Stretch last = heardIn(wave.sound, played.back());
  auto figures =
      checkMixes(RecordingStage::beforeTheLastFade(wave.sound, played.back(), last.from, kLead),
                 mixed(played), {kLead, kFade}, complaints, demands().mix);
  const double untilFade = last.from - played.back().attack + played.back().length - kLead;
  expect(std::abs(wave.seconds() - (untilFade + kFade + 0.5)) < 0.5,
         "it does not end with the fade", complaints);
  expect(levelAt(wave.sound, played.back().hertz, wave.seconds() - 0.1) < -40,
         "the last song is cut off", complaints);
  expect(it.stage.recording->waitForSilence(0.5, 3), "the player plays on", complaints);
  figures.push_back(figure("recorded", wave.seconds(), "s"));
  return it.stage.outcome(complaints, figures);
}

TEST(RecordingSection, EndsWithTheListInAutoNextAndHoldsEverySongAndMix) {
  measure([] { return endsWithTheList(2); });
}

TEST(RecordingSection, EndsWithTheListInRandomAndHoldsEverySongAndMix) {
  measure([] { return endsWithTheList(3); });
}

Outcome limitOfThreeMegabytes() {
  RecordingStage it;
  it.stage.prepare({"1 first.wav"}, 40);
  it.open({.mode = 1, .mixLead = 4, .fadeLength = 2});
  it.section->limitTo("3");
  if (!it.start()) return it.stage.outcome({"the song is not heard"});
  Complaints complaints;
  if (!waitForFinishedFile(it.file, 35)) return it.stage.outcome({"the limit does not stop it"});
  const RecordedWave wave = readRecorded(it.file, complaints);
  const double off = static_cast<double>(wave.dataBytes) - 3 * 1048576.0;
  expect(std::abs(off) <= kHalfBytes, "it ends more than one half beside its limit", complaints);
  expect(levelAt(wave.sound, it.stage.songs[0].hertz, wave.seconds() - 0.1) < -40,
         "the song is cut off", complaints);
  return it.stage.outcome(complaints, {figure("beside the limit", off / kHalfBytes, "halves")});
}

TEST(RecordingSection, StopsAtItsMegabytesWithinOneHalf) { measure(limitOfThreeMegabytes); }

Outcome fadeOutByHand() {
  RecordingStage it;
  it.stage.prepare({"1 first.wav"}, 60);
  it.open({.mode = 1, .mixLead = 4, .fadeLength = 2});
  if (!it.start()) return it.stage.outcome({"the song is not heard"});
  pauseFor(6);
  it.section->fadeOutAndStop();
  Complaints complaints;
  if (!waitForFinishedFile(it.file, 10)) return it.stage.outcome({"it does not stop"});
  const RecordedWave wave = readRecorded(it.file, complaints);
  const double hertz = it.stage.songs[0].hertz;
  const Stretch full = heardIn(wave.sound, it.stage.songs[0]);
  const auto leaps = phaseLeaps(wave.sound, hertz, full.from + 0.1, full.to);
  expect(leaps.empty(), "breaks in the tone", complaints);
  const auto steps = fallingSteps(envelopeOf(wave.sound, hertz, full.from, wave.seconds()),
                                  full.from + 1, wave.seconds());
  // 50 dB in 2 s: 2.38 dB each tenth of a second, as many as are above the noise.
  expect(steps.size() >= 15, "it is not faded out step by step", complaints);
  if (!steps.empty())
    expect(std::abs(wave.seconds() - steps.front().at - 2.5) < 0.4,
           "the file does not end half a second behind the fade", complaints);
  expect(levelAt(wave.sound, hertz, wave.seconds() - 0.1) < -40, "it is cut off", complaints);
  return it.stage.outcome(complaints, {figure("steps", static_cast<double>(steps.size()), ""),
                                       figure("recorded", wave.seconds(), "s")});
}

TEST(RecordingSection, FadesOutAndStopsByHand) { measure(fadeOutByHand); }

Outcome exitWhileRecording() {
  RecordingStage it;
  it.stage.prepare({"1 first.wav"}, 60);
  it.open({.mode = 1, .mixLead = 4, .fadeLength = 2});
  if (!it.start()) return it.stage.outcome({"the song is not heard"});
  pauseFor(6);
  it.section->exit();
  Complaints complaints;
  expect(waitForFinishedFile(it.file, 3), "the file is not finished", complaints);
  pauseFor(1);
  const auto size = std::filesystem::file_size(it.file);
  expect(!it.section->shown(), "the window stays", complaints);
  expect(it.stage.recording->waitForTone(it.stage.songs[0].hertz, 1), "the song is stopped",
         complaints);
  pauseFor(2.5);
  expect(std::filesystem::file_size(it.file) == size, "the file grows on", complaints);
  const RecordedWave wave = readRecorded(it.file, complaints);
  const Stretch full = heardIn(wave.sound, it.stage.songs[0]);
  expect(full.to > wave.seconds() - 0.2, "the song is faded", complaints);
  expect(phaseLeaps(wave.sound, it.stage.songs[0].hertz, full.from + 0.1, full.to - 0.1).empty(),
         "breaks in the tone", complaints);
  return it.stage.outcome(complaints, {figure("recorded", wave.seconds(), "s")});
}

TEST(RecordingSection, ExitFinishesTheFileAndPlaysOn) { measure(exitWhileRecording); }

Outcome killedWhileRecording() {
  RecordingStage it;
  it.stage.prepare({"1 first.wav"}, 60);
  it.open({.mode = 1, .mixLead = 4, .fadeLength = 2});
  if (!it.start()) return it.stage.outcome({"the song is not heard"});
  pauseFor(9);
  it.stage.player->program().kill();
  Complaints complaints;
  expect(!waitForFinishedFile(it.file, 0), "it was finished before it was killed", complaints);
  const auto size = std::filesystem::file_size(it.file);
  expect(runToEnd(startOf(it.stage.desktop, {"--repair", toldAs(it.file)})) == 0,
         "the repair fails", complaints);
  expect(std::filesystem::file_size(it.file) == size, "the repair changes more than the header",
         complaints);
  const RecordedWave wave = readRecorded(it.file, complaints, Ending::CutOff);
  const Stretch full = heardIn(wave.sound, it.stage.songs[0]);
  expect(full.from < 1.5 && full.to > wave.seconds() - 0.1 && wave.seconds() >= 6,
         "sound that was recorded is not there", complaints);
  expect(phaseLeaps(wave.sound, it.stage.songs[0].hertz, full.from + 0.1, full.to - 0.1).empty(),
         "breaks in the tone", complaints);
  return {complaints,
          it.stage.disturbances(it.stage.recording->sound(), 0.3),
          {figure("had back", wave.seconds(), "s")}};
}

TEST(RecordingSection, KilledInTheMiddleItsSoundIsHadBackByTheRepair) {
  measure(killedWhileRecording);
}

}  // namespace
}  // namespace nerolith::endtoend
