#include "recording/recorder.h"

#include <gtest/gtest.h>

#include "platform/failure.h"
#include "recording/recorder_rig.h"
#include "recording/wave_format.h"

namespace nerolith::recording {
namespace {

using Recorder = RecorderRig;

TEST(WaveFormat, HasTheSevenFieldsOfPcm) {
  EXPECT_EQ(MakeWaveFormat(44100, 2, 16), (platform::WaveFormat{1, 2, 44100, 176400, 4, 16, 0}));
  EXPECT_EQ(MakeWaveFormat(44100, 1, 16), (platform::WaveFormat{1, 1, 44100, 88200, 2, 16, 0}));
  EXPECT_EQ(MakeWaveFormat(8000, 1, 12).blockAlign, 1);  // the fraction is cut off
}

TEST_F(Recorder, OpensTheDeviceWhenItIsMadeAndNothingElse) {
  EXPECT_EQ(machine.trace(), "capture.open");
  EXPECT_EQ(recorder.filename(), "");
  EXPECT_FALSE(recorder.writingtofile());
  EXPECT_EQ(recorder.Filesize(), 0);
}

TEST_F(Recorder, CannotBeMadeWithoutACaptureDevice) {
  machine.capture.setPresent(false);
  EXPECT_THROW(recordsound2file({machine.capture, machine.output, machine.clock, unfinished}),
               platform::Failure);
}

TEST_F(Recorder, CapturesIntoAFreshBufferOfFourSeconds) {
  machine.clearTrace();
  recorder.StartSoundCapture();
  recorder.StartSoundCapture();
  recorder.StopSoundCapture();
  EXPECT_EQ(machine.trace(),
            "capture.create 705600 | capture.start | capture.release | capture.create 705600 | "
            "capture.start | capture.stop");
}

TEST_F(Recorder, AFormatThatTheDeviceCannotDeliverReachesTheOwner) {
  machine.capture.setDeliverable(false);
  EXPECT_THROW(recorder.StartSoundCapture(), platform::Failure);
  EXPECT_THROW(recorder.StopSoundCapture(), platform::Failure);
  recorder.filename(kTake);
  EXPECT_THROW(recorder.Start_Recording(), platform::Failure);
  EXPECT_FALSE(machine.files.fileExists(kTake));
}

TEST_F(Recorder, AStartMakesTheBufferThenTheFileThenCaptures) {
  recorder.StartSoundCapture();
  machine.clearTrace();
  start();
  EXPECT_EQ(machine.trace({Door::Capture, Door::Output}),
            std::string("capture.release | capture.create 705600 | output.create ") + kTake +
                " | output.append 20 | output.append 16 | output.append 8 | capture.start");
}

TEST_F(Recorder, BeginsTheFileWithAHeaderOfZeroSizes) {
  start();
  expectFile(model::header(0, 0));
  EXPECT_FALSE(recorder.writingtofile());
}

TEST_F(Recorder, DeletesAFileOfThatNameWithoutAsking) {
  machine.bytes.put(kTake, "something else that is longer than a header, by a word or two");
  start();
  expectFile(model::header(0, 0));
}

TEST_F(Recorder, WritesNothingBeforeTheFirstHalfIsFull) {
  start();
  machine.advance(milliseconds(1999));
  recorder.timer_Event500ms();
  expectFile(model::header(0, 0));
  EXPECT_FALSE(recorder.writingtofile());
  EXPECT_EQ(recorder.Filesize(), 0);
}

TEST_F(Recorder, WritesTheFirstHalfAndASampleOfZeroOnceItIsFull) {
  start();
  machine.advance(seconds(2));
  recorder.timer_Event500ms();
  EXPECT_EQ(bytes().size(), 44u + 352802u);
  expectFile(model::header(0, 0) + model::halves(1));
  EXPECT_TRUE(recorder.writingtofile());
  EXPECT_EQ(recorder.Filesize(), 352800);
}

TEST_F(Recorder, ATickWithinTheSameHalfWritesNothing) {
  start();
  recordFor(milliseconds(3500));
  EXPECT_EQ(bytes().size(), 44u + 352802u);
}

TEST_F(Recorder, WritesTheSecondHalfOnceTheCursorIsBackInTheFirst) {
  start();
  recordFor(seconds(4));
  expectFile(model::header(0, 0) + model::halves(2));
  EXPECT_EQ(recorder.Filesize(), 705600);
}

TEST_F(Recorder, ARecordingAlwaysBeginsWithTheFirstHalf) {
  start();
  machine.advance(milliseconds(4500));  // the first tick comes late, the cursor is in half one
  recorder.timer_Event500ms();
  expectFile(model::header(0, 0));
  EXPECT_FALSE(recorder.writingtofile());
}

TEST_F(Recorder, AStopInTheSecondHalfFlushesFromItsStartToTheCursor) {
  start();
  recordFor(seconds(3));
  recorder.Stop_Recording();
  expectFile(model::finished(1, 3 * 176400));
}

TEST_F(Recorder, AStopInTheFirstHalfFlushesFromTheBuffersStartToTheCursor) {
  start();
  recordFor(seconds(5));
  recorder.Stop_Recording();
  expectFile(model::finished(2, 5 * 176400));
}

TEST_F(Recorder, AStopRightBehindAHalfFlushesTheExtraSampleOnly) {
  start();
  recordFor(seconds(4));
  recorder.Stop_Recording();
  expectFile(model::finished(2, 4 * 176400));
  EXPECT_EQ(bytes().size(), 44u + 2 * 352802u + 2u);
}

TEST_F(Recorder, AStoppedFileIsTwoBytesLongerForEachPieceThanItsHeaderSays) {
  start();
  recordFor(milliseconds(60250));
  recorder.Stop_Recording();
  expectFile(model::finished(30, 60250 * 176400LL / 1000));
  EXPECT_EQ(static_cast<std::int64_t>(bytes().size()), 44 + recorder.Filesize() + 2 * 31);
}

TEST_F(Recorder, AStopFinishesTheFileInItsOrderThenCapturesAnew) {
  start();
  recordFor(seconds(3));
  machine.doorway.recordReadings(true);
  machine.clearTrace();
  recorder.Stop_Recording();
  EXPECT_EQ(machine.trace({Door::Capture, Door::Output}),
            "capture.stop | capture.cursors | capture.read 352800 176400 | output.append 176402 | "
            "output.write 4 4 | output.write 36 8 | output.close | capture.release | "
            "capture.create 705600 | capture.start");
  EXPECT_FALSE(recorder.writingtofile());
  EXPECT_EQ(recorder.filename(), "");
  EXPECT_EQ(recorder.Filesize(), 3 * 176400);
  EXPECT_EQ(recorder.finishedFile(), kTake);
  EXPECT_TRUE(machine.capture.running());
}

TEST_F(Recorder, AStopBeforeTheFirstHalfLeavesTheFileAsItIsAndOpen) {
  start();
  recordFor(milliseconds(1900));
  machine.clearTrace();
  recorder.Stop_Recording();
  EXPECT_EQ(machine.trace({Door::Capture, Door::Output}),
            "capture.release | capture.create 705600 | capture.start");
  expectFile(model::header(0, 0));
  EXPECT_TRUE(machine.output.isOpen(kTake));
  EXPECT_EQ(recorder.filename(), kTake);
  EXPECT_EQ(recorder.finishedFile(), "");
}

TEST_F(Recorder, AStopWithoutAnyTickLeavesTheFileAsItIs) {
  start();
  machine.advance(milliseconds(3000));
  recorder.Stop_Recording();
  expectFile(model::header(0, 0));
}

TEST_F(Recorder, TheSameNameCanBeRecordedToAfterAStopThatCameTooEarly) {
  start();
  recorder.Stop_Recording();
  recorder.Start_Recording();
  recordFor(seconds(3));
  recorder.Stop_Recording();
  expectFile(model::finished(1, 3 * 176400));
}

TEST_F(Recorder, TheNextRecordingBeginsWithTheDataSizeOfTheLast) {
  start();
  recordFor(seconds(3));
  recorder.Stop_Recording();
  start("C:\\Takes\\second.wav");
  expectFile(model::header(0, 3 * 176400), "C:\\Takes\\second.wav");
  EXPECT_EQ(recorder.Filesize(), 0);
  recordFor(milliseconds(4500));
  recorder.Stop_Recording();
  expectFile(model::finished(2, 4500 * 176400LL / 1000), "C:\\Takes\\second.wav");
}

TEST_F(Recorder, WithoutATickBeforeTheStopASecondHalfIsFlushedWithTheFirst) {
  start();
  recordFor(seconds(4));
  machine.advance(milliseconds(2250));  // no tick saw the second half begin
  recorder.Stop_Recording();
  expectFile(model::finished(2, 6250 * 176400LL / 1000));
}

TEST_F(Recorder, WithoutATickBeforeTheStopAFullSecondHalfIsOverlooked) {
  start();
  recordFor(seconds(2));
  machine.advance(milliseconds(2250));
  recorder.Stop_Recording();
  expectFile(model::header(2 * 352800 + 44, 2 * 352800) + model::halves(1) + model::halves(1));
}

TEST_F(Recorder, ATickBeforeTheStopLosesNothing) {
  start();
  recordFor(seconds(2));
  machine.advance(milliseconds(2250));
  recorder.timer_Event500ms();
  recorder.Stop_Recording();
  expectFile(model::finished(2, 4250 * 176400LL / 1000));
}

TEST_F(Recorder, TicksAfterTheStopWriteNothing) {
  start();
  recordFor(seconds(3));
  recorder.Stop_Recording();
  machine.clearTrace();
  recordFor(seconds(9));
  EXPECT_EQ(machine.trace(), "");
  EXPECT_EQ(recorder.trouble(), "");
}

TEST_F(Recorder, FinishesItsFileWhenItEnds) {
  {
    recordsound2file other({machine.capture, machine.output, machine.clock, unfinished});
    other.filename(kTake);
    other.Start_Recording();
    machine.advance(seconds(2));
    other.timer_Event500ms();
    machine.advance(seconds(1));
  }
  expectFile(model::finished(1, 3 * 176400));
  EXPECT_FALSE(machine.output.isOpen(kTake));
  EXPECT_EQ(unfinished.path(), "");
}

TEST_F(Recorder, AStartWithinARecordingLeavesTheFirstFileWhole) {
  start();
  recordFor(seconds(3));
  start("C:\\Takes\\second.wav");
  expectFile(model::header(352800 + 44, 352800) + model::halves(1));
  EXPECT_FALSE(machine.output.isOpen(kTake));
  expectFile(model::header(0, 352800), "C:\\Takes\\second.wav");
}

TEST_F(Recorder, AFileThatCannotBeMadeReachesTheOwnerAndNothingRecords) {
  for (const char* path : {"C:\\Nowhere\\take.wav", "", "C:\\Takes"}) {
    recorder.filename(path);
    EXPECT_THROW(recorder.Start_Recording(), platform::Failure) << path;
    recordFor(seconds(5));
    EXPECT_FALSE(recorder.writingtofile());
    EXPECT_EQ(unfinished.path(), "");
  }
  machine.files.addFile("C:\\Takes\\fixed.wav", {.readOnly = true});
  recorder.filename("C:\\Takes\\fixed.wav");
  EXPECT_THROW(recorder.Start_Recording(), platform::Failure);
}

}  // namespace
}  // namespace nerolith::recording
