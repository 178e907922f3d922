// Recordings that run into trouble: what is recorded is kept, and the owner can say so.
#include <gtest/gtest.h>

#include "platform/failure.h"
#include "recording/recorder_rig.h"

namespace nerolith::recording {
namespace {

using RecordingTrouble = RecorderRig;

bool contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST_F(RecordingTrouble, AFullDiskEndsTheRecordingWithAWholeFile) {
  start();
  machine.output.setFreeSpace(2 * 352802 + 1000);
  recordFor(seconds(9));
  expectFile(model::header(2 * 352800 + 44, 2 * 352800) + model::halves(2));
  EXPECT_FALSE(recorder.writingtofile());
  EXPECT_TRUE(recorder.endedByTrouble());
  EXPECT_TRUE(contains(recorder.trouble(), "take.wav: the disk is full")) << recorder.trouble();
  EXPECT_TRUE(contains(recorder.trouble(), "is kept")) << recorder.trouble();
  EXPECT_EQ(recorder.Filesize(), 2 * 352800);
  EXPECT_EQ(recorder.filename(), "");
  EXPECT_EQ(recorder.finishedFile(), kTake);
  EXPECT_EQ(unfinished.path(), "");
  EXPECT_FALSE(machine.output.isOpen(kTake));
}

TEST_F(RecordingTrouble, TheMeterGoesOnAfterAFullDisk) {
  start();
  machine.output.setFreeSpace(0);
  recordFor(milliseconds(2500));
  ASSERT_TRUE(recorder.endedByTrouble());
  recorder.probesound();
  EXPECT_GT(recorder.Peaklevel(), 0);
}

TEST_F(RecordingTrouble, TheStopAfterItTouchesTheFileNoMore) {
  start();
  machine.output.setFreeSpace(352802);
  recordFor(seconds(5));
  const std::string kept = bytes();
  machine.output.setFreeSpace(std::nullopt);
  recordFor(seconds(5));
  recorder.Stop_Recording();
  expectFile(kept);
  EXPECT_TRUE(recorder.endedByTrouble());
  EXPECT_NE(recorder.trouble(), "");
}

TEST_F(RecordingTrouble, TheNextStartClearsIt) {
  start();
  machine.output.setFreeSpace(0);
  recordFor(milliseconds(2500));
  ASSERT_TRUE(recorder.endedByTrouble());
  machine.output.setFreeSpace(std::nullopt);
  start();
  EXPECT_EQ(recorder.trouble(), "");
  EXPECT_FALSE(recorder.endedByTrouble());
  recordFor(seconds(3));
  recorder.Stop_Recording();
  EXPECT_EQ(bytes().substr(44), model::finished(1, 3 * 176400).substr(44));
}

TEST_F(RecordingTrouble, ADiskThatFillsUpAtTheStopKeepsTheHalves) {
  start();
  recordFor(seconds(3));
  machine.output.setFreeSpace(100);
  recorder.Stop_Recording();
  expectFile(model::header(352800 + 44, 352800) + model::halves(1));
  EXPECT_TRUE(contains(recorder.trouble(), "The end of the recording is missing"));
  EXPECT_EQ(unfinished.path(), "");
}

TEST_F(RecordingTrouble, AHeldFileIsLeftForRepair) {
  start();
  recordFor(seconds(3));
  machine.output.lock(kTake);
  recordFor(seconds(2));
  EXPECT_TRUE(recorder.endedByTrouble());
  EXPECT_TRUE(contains(recorder.trouble(), "held by another program")) << recorder.trouble();
  EXPECT_TRUE(contains(recorder.trouble(), "could not be finished")) << recorder.trouble();
  expectFile(model::header(0, 0) + model::halves(1));
  EXPECT_EQ(unfinished.path(), kTake);
  recorder.Stop_Recording();
  EXPECT_EQ(unfinished.path(), kTake) << "the next start of the program offers to repair it";
}

TEST_F(RecordingTrouble, AFileHeldAtTheStopIsLeftForRepair) {
  start();
  recordFor(seconds(3));
  machine.output.lock(kTake);
  recorder.Stop_Recording();
  EXPECT_EQ(unfinished.path(), kTake);
  EXPECT_TRUE(contains(recorder.trouble(), "not finished")) << recorder.trouble();
}

TEST_F(RecordingTrouble, ARemovedFolderIsSaid) {
  start();
  recordFor(seconds(3));
  machine.files.remove("C:\\Takes");
  recordFor(seconds(2));
  EXPECT_TRUE(recorder.endedByTrouble());
  EXPECT_TRUE(contains(recorder.trouble(), kTake)) << recorder.trouble();
}

TEST_F(RecordingTrouble, SoundThatStaysAwayIsSaidAndTheFileIsWholeMeanwhile) {
  start();
  recordFor(seconds(3));
  machine.capture.goAway("The sound server does not answer.");
  recordFor(seconds(10));
  EXPECT_EQ(recorder.trouble(), "The sound server does not answer.");
  EXPECT_FALSE(recorder.endedByTrouble());
  EXPECT_TRUE(recorder.writingtofile());
  expectFile(model::header(352800 + 44, 352800) + model::halves(1));
}

TEST_F(RecordingTrouble, TheRecordingGoesOnWhenSoundComesBack) {
  start();
  recordFor(seconds(3));
  machine.capture.goAway("The sound server does not answer.");
  recordFor(seconds(10));
  machine.capture.comeBack();
  recordFor(seconds(4));
  EXPECT_EQ(recorder.trouble(), "");
  recorder.Stop_Recording();
  expectFile(model::finished(3, 7 * 176400));
  EXPECT_EQ(recorder.missedHalves(), 0);
}

TEST_F(RecordingTrouble, ACaptureThatFailsForAMomentIsGotOver) {
  start();
  recordFor(seconds(3));
  machine.advance(milliseconds(500));
  machine.failDoorCall(1);
  recorder.timer_Event500ms();
  EXPECT_NE(recorder.trouble(), "");
  recordFor(milliseconds(500));
  EXPECT_EQ(recorder.trouble(), "");
  recordFor(seconds(1));
  recorder.Stop_Recording();
  expectFile(model::finished(2, 5 * 176400));
}

TEST_F(RecordingTrouble, ANoteThatCannotBeWrittenStopsNoRecording) {
  machine.failDoorCall(7);  // buffer, file, three pieces of header, start, note
  start();
  EXPECT_EQ(unfinished.path(), "");
  recordFor(seconds(3));
  recorder.Stop_Recording();
  expectFile(model::finished(1, 3 * 176400));
}

TEST_F(RecordingTrouble, TheNoteNamesTheFileAsLongAsItRecords) {
  EXPECT_EQ(unfinished.path(), "");
  start();
  EXPECT_EQ(unfinished.path(), kTake);
  recordFor(seconds(3));
  EXPECT_EQ(unfinished.path(), kTake);
  recorder.Stop_Recording();
  EXPECT_EQ(unfinished.path(), "");
}

TEST_F(RecordingTrouble, AStopThatCameTooEarlyLeavesNoNote) {
  start();
  recorder.Stop_Recording();
  EXPECT_EQ(unfinished.path(), "");
}

TEST_F(RecordingTrouble, TicksInTimeMissNothing) {
  start();
  recordFor(seconds(40));
  EXPECT_EQ(recorder.missedHalves(), 0);
}

TEST_F(RecordingTrouble, ATickLessThanOneHalfLateMissesNothing) {
  start();
  recordFor(seconds(3));
  machine.timeline.stall(milliseconds(2900));  // until just before the first half begins anew
  recorder.timer_Event500ms();
  EXPECT_EQ(recorder.missedHalves(), 0);
}

TEST_F(RecordingTrouble, HalvesThatNoTickSawAreCounted) {
  start();
  recordFor(seconds(3));
  machine.timeline.stall(seconds(4));  // round once: half two and half one went by
  recorder.timer_Event500ms();
  EXPECT_EQ(recorder.missedHalves(), 2);
  recordFor(seconds(3));
  EXPECT_EQ(recorder.missedHalves(), 2);
  machine.timeline.stall(seconds(26));  // thirteen halves, of which the last is fetched
  recorder.timer_Event500ms();
  EXPECT_EQ(recorder.missedHalves(), 2 + 12);
  recorder.Stop_Recording();
  EXPECT_EQ(recorder.missedHalves(), 14);
  start();
  EXPECT_EQ(recorder.missedHalves(), 0);
}

TEST_F(RecordingTrouble, MidnightMissesNothing) {
  machine.clock.set(45000, std::chrono::hours(24) - seconds(3));
  start();
  recordFor(seconds(20));
  EXPECT_EQ(recorder.missedHalves(), 0);
}

TEST_F(RecordingTrouble, AClockThatIsSetMissesNothing) {
  start();
  recordFor(seconds(3));
  machine.clock.set(45000, std::chrono::hours(3));
  recordFor(seconds(3));
  EXPECT_EQ(recorder.missedHalves(), 0);
}

}  // namespace
}  // namespace nerolith::recording
