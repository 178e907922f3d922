// The level of the captured sound.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <vector>

#include "recording/recorder_rig.h"

namespace nerolith::recording {
namespace {

using Probe = RecorderRig;

/// The level of the bytes from `begin` to `end` since the capture began, said in other words: a
/// mean with ties to even over every third element of an array that has an element for each byte.
std::int32_t modelPeak(std::int64_t begin, std::int64_t end) {
  std::vector<int> elements(static_cast<std::size_t>(end - begin) + 1, 0);
  for (std::int64_t i = 0; i < (end - begin) / 2; ++i)
    elements[static_cast<std::size_t>(i)] = model::sampleNumber(begin / 2 + i);
  double running = 0, peak = 0;
  for (std::size_t i = 0; i < elements.size(); i += 3) {
    running = std::nearbyint(running - (running - std::abs(elements[i])) / 2);
    if (running > peak) peak = running;
  }
  return static_cast<std::int32_t>(peak);
}

TEST_F(Probe, MeasuresWhatWasCapturedSinceTheLastOne) {
  recorder.StartSoundCapture();
  for (int i = 0; i < 30; ++i) {
    machine.advance(milliseconds(100));
    recorder.probesound();
    ASSERT_EQ(recorder.Peaklevel(), modelPeak(i * 17640, (i + 1) * 17640)) << i;
  }
}

TEST_F(Probe, IsNotMovedByWhatCameBeforeTheLastOne) {
  machine.capture.setSound([](std::int64_t n) -> std::int16_t { return n < 8820 ? 30000 : 100; });
  recorder.StartSoundCapture();
  machine.advance(milliseconds(100));
  recorder.probesound();
  EXPECT_EQ(recorder.Peaklevel(), 30000);
  machine.advance(milliseconds(100));
  recorder.probesound();
  EXPECT_EQ(recorder.Peaklevel(), 100);
}

TEST_F(Probe, LooksAtEveryThirdSampleOnly) {
  machine.capture.setSound(
      [](std::int64_t n) -> std::int16_t { return n % 3 == 0 ? 1000 : 32000; });
  recorder.StartSoundCapture();
  machine.advance(milliseconds(100));
  recorder.probesound();
  EXPECT_EQ(recorder.Peaklevel(), 1000);
}

TEST_F(Probe, ALoneSampleCountsForHalf) {
  machine.capture.setSound([](std::int64_t n) -> std::int16_t { return n == 300 ? -20001 : 0; });
  recorder.StartSoundCapture();
  machine.advance(milliseconds(100));
  recorder.probesound();
  EXPECT_EQ(recorder.Peaklevel(), 10000);  // 10000.5, to the even one
}

TEST_F(Probe, RoundsTiesToEvenUpwardToo) {
  machine.capture.setSound([](std::int64_t n) -> std::int16_t { return n == 300 ? 7 : 0; });
  recorder.StartSoundCapture();
  machine.advance(milliseconds(100));
  recorder.probesound();
  EXPECT_EQ(recorder.Peaklevel(), 4);  // 3.5
}

TEST_F(Probe, TiesToEvenStopOneShortOfFullLevel) {
  machine.capture.setSound([](std::int64_t) -> std::int16_t { return -32768; });
  recorder.StartSoundCapture();
  machine.advance(milliseconds(100));
  recorder.probesound();
  EXPECT_EQ(recorder.Peaklevel(), 32766);
}

TEST_F(Probe, ReadsOverTheBuffersEndInOneGo) {
  recorder.StartSoundCapture();
  machine.advance(milliseconds(3900));
  recorder.probesound();
  machine.advance(milliseconds(200));
  machine.doorway.recordReadings(true);
  machine.clearTrace();
  recorder.probesound();
  EXPECT_EQ(machine.trace(), "capture.cursors | capture.read 687960 35280");
  EXPECT_EQ(recorder.Peaklevel(), modelPeak(687960, 687960 + 35280));
}

TEST_F(Probe, GoesOnFromItsLastPlaceInANewBuffer) {
  recorder.StartSoundCapture();
  machine.advance(seconds(1));
  recorder.probesound();
  start();
  machine.advance(milliseconds(100));
  machine.doorway.recordReadings(true);
  machine.clearTrace();
  recorder.probesound();
  EXPECT_EQ(machine.trace(), "capture.cursors | capture.read 176400 546840");
}

TEST_F(Probe, NothingNewIsSilence) {
  recorder.StartSoundCapture();
  machine.advance(milliseconds(100));
  recorder.probesound();
  ASSERT_GT(recorder.Peaklevel(), 0);
  recorder.probesound();
  EXPECT_EQ(recorder.Peaklevel(), 0);
}

TEST_F(Probe, TheAverageIsAlwaysZero) {
  EXPECT_EQ(recorder.Avaragelevel(), 0);
  recorder.StartSoundCapture();
  machine.advance(milliseconds(100));
  recorder.probesound();
  EXPECT_EQ(recorder.Avaragelevel(), 0);
}

TEST_F(Probe, AFailingStepMakesTheLevelZeroAndEndsQuietly) {
  recorder.probesound();  // no buffer yet
  EXPECT_EQ(recorder.Peaklevel(), 0);
  recorder.StartSoundCapture();
  for (const std::uint64_t step : {1, 2}) {
    machine.advance(milliseconds(100));
    recorder.probesound();
    ASSERT_GT(recorder.Peaklevel(), 0);
    machine.advance(milliseconds(100));
    machine.failDoorCall(step);
    recorder.probesound();
    EXPECT_EQ(recorder.Peaklevel(), 0);
  }
}

TEST_F(Probe, AFailedOneIsMadeUpForByTheNext) {
  recorder.StartSoundCapture();
  machine.advance(milliseconds(100));
  machine.failDoorCall(2);
  recorder.probesound();
  machine.advance(milliseconds(100));
  recorder.probesound();
  EXPECT_EQ(recorder.Peaklevel(), modelPeak(0, 2 * 17640));
}

TEST_F(Probe, WorksWhileRecordingAndLeavesTheFileAlone) {
  start();
  for (int tenth = 1; tenth <= 30; ++tenth) {
    machine.advance(milliseconds(100));
    recorder.probesound();
    if (tenth % 5 == 0) recorder.timer_Event500ms();
  }
  recorder.Stop_Recording();
  expectFile(model::finished(1, 3 * 176400));
}

}  // namespace
}  // namespace nerolith::recording
