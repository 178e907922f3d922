// What becomes of a recording when its disk is full; the section's messages in the real program.
#include <gtest/gtest.h>

#include "endtoend/recording_stage.h"
#include "endtoend/shipped_program.h"
#include "endtoend/small_disk.h"

namespace nerolith::endtoend {
namespace {

Outcome fullDisk() {
  RecordingStage it;
  const SmallDisk disk(it.stage.desktop);
  it.stage.prepare({"1 first.wav"}, 60);
  it.file = disk.folder() / "take.wav";
  it.open({.mode = 1, .mixLead = 4, .fadeLength = 2});
  const auto seen = disk.seenBeside(it.stage.player->program().pid()) / "take.wav";
  if (!it.start()) return it.stage.outcome({"the song is not heard"});
  Complaints complaints;
  const double before = it.section->noticeContrast();
  expect(before < kNoticeEmpty, "trouble without cause", complaints);
  // A megabyte takes two halves, of two seconds each.
  expect(waitForFinishedFile(seen, 15), "the file is not finished", complaints);
  expect(waitUntil(3, [&] { return it.section->noticeContrast() > kNoticeLegible; }),
         "the window does not say so", complaints);
  it.stage.desktop.screenshot(kPictures / "recording-full-disk.png");
  const RecordedWave wave = readRecorded(seen, complaints, Ending::CutOff);
  const Stretch full = heardIn(wave.sound, it.stage.songs[0]);
  expect(wave.dataBytes == 2 * kHalfBytes, "not all that found room is kept", complaints);
  expect(full.to > wave.seconds() - 0.1, "sound that was recorded is not there", complaints);
  expect(lostIn(wave.sound, it.stage.recording->sound(), it.stage.songs[0]).empty(),
         "breaks in the tone", complaints);
  pauseFor(1);
  expect(it.stage.recording->waitForTone(it.stage.songs[0].hertz, 1), "the player is silent",
         complaints);
  expect(it.section->shown(), "the window is gone", complaints);
  return it.stage.outcome(complaints, {disk.kind(), figure("kept", wave.seconds(), "s")});
}

TEST(RecordingTrouble, AFullDiskIsSaidWhatFoundRoomIsWholeAndThePlayerPlaysOn) {
  measure(fullDisk);
}

/// Presses a key and waits for the message; takes its picture and answers it.
void seeMessage(const Stage& stage, const std::function<void()>& press, const std::string& name,
                Complaints& complaints) {
  const int before = stage.player->countTitles(".");
  press();
  expect(waitUntil(10, [&] { return stage.player->countTitles(".") > before; }),
         name + ": no message comes up", complaints);
  pauseFor(0.5);
  stage.desktop.screenshot(kPictures / (name + ".png"));
  stage.player->key("Return");
  expect(waitUntil(10, [&] { return stage.player->countTitles(".") == before; }),
         name + ": the message does not go", complaints);
  pauseFor(0.5);
}

Outcome messagesAndCalibration() {
  constexpr double kToneHertz = 122.5;
  RecordingStage it;
  it.stage.prepare({"1 first.wav"}, 60);
  it.open({.mode = 1, .mixLead = 4, .fadeLength = 2});
  Complaints complaints;
  it.stage.desktop.screenshot(kPictures / "recording-idle.png");
  expect(!it.section->showsLevel(), "the meter shows a level in silence", complaints);
  seeMessage(
      it.stage, [&] { it.section->howTo(); }, "recording-how-to", complaints);
  seeMessage(
      it.stage, [&] { it.section->aboutVolumes(); }, "recording-volumes", complaints);
  seeMessage(
      it.stage, [&] { it.section->calibrate(); }, "recording-calibration", complaints);
  expect(it.stage.recording->waitForTone(kToneHertz, 5), "no tone is heard", complaints);
  expect(waitUntil(5, [&] { return it.section->showsLevel(); }), "the meter does not show the tone",
         complaints);
  it.stage.desktop.screenshot(kPictures / "recording-calibrating.png");
  expect(it.start(), "the song is not heard", complaints);
  expect(it.holdsHalves(1, 10), "the file does not grow", complaints);
  it.stage.desktop.screenshot(kPictures / "recording-running.png");
  const Sound heard = it.stage.recording->sound();
  expect(levelAt(heard, kToneHertz, heard.length() - 0.5) < kToneLevel - 20,
         "the tone is heard in the recording", complaints);
  it.section->exit();
  return it.stage.outcome(complaints);
}

TEST(RecordingTrouble, ItsMessagesComeUpAndTheCalibrationIsHeardUntilARecordingStarts) {
  measure(messagesAndCalibration);
}

}  // namespace
}  // namespace nerolith::endtoend
