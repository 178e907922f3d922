#include "recording/calibration.h"

#include <cmath>

#include "recording/recording_texts.h"
#include "recording_rig.h"

namespace nerolith::recording {
namespace {

TEST(CalibrationSamples, TheToneHasItsOwnShape) {
  const std::vector<std::int16_t> samples = calibrationSamples();
  ASSERT_EQ(samples.size(), 176401U);
  EXPECT_EQ(samples[0], 0);
  EXPECT_EQ(samples[1], 297);  // 296.69
  EXPECT_EQ(samples[90], 17000);
  EXPECT_EQ(samples[180], 1);  // 1.1: a circle's number would give 0
  EXPECT_EQ(samples[270], -17000);
  EXPECT_EQ(samples[360], -2);  // -2.2
  for (std::size_t i = 1; i + 360 < samples.size(); ++i)
    ASSERT_EQ(samples[i], samples[i + 360]) << i;
}

TEST_F(RecordingTest, CalibrationStopsThePlayerExplainsItselfAndPlaysTheTone) {
  open();
  machine.dialogs.answer(Answer::Ok);
  form().Label7.userClick();
  EXPECT_EQ(machine.trace({Door::Events, Door::Dialogs, Door::Tone, Door::Capture}),
            "player.stop | dialogs.message " + std::string(kCalibrationText) +
                " | tone.create 352800 | capture.release | capture.create 705600 | "
                "capture.start | tone.write 176400 | tone.play");
  EXPECT_EQ(form().Label7.caption(), "Stop Calibrate");
  EXPECT_EQ(machine.tone.format().channels, 1);
  EXPECT_EQ(machine.tone.format().samplesPerSecond, 44100);
  EXPECT_EQ(machine.tone.format().bitsPerSample, 16);
  EXPECT_TRUE(machine.capture.running());
}

TEST_F(RecordingTest, CalibrationEndsByItsKeyAndStopsTheCaptureUnlessTheAdjustIsOn) {
  open();
  machine.dialogs.answer(Answer::Ok);
  form().Label7.userClick();
  form().Label7.userClick();
  EXPECT_EQ(form().Label7.caption(), "Calibrate Sound levels");
  EXPECT_FALSE(machine.tone.playing());
  EXPECT_FALSE(machine.capture.running());
  window().Label4_Click();
  machine.dialogs.answer(Answer::Ok);
  form().Label7.userClick();
  form().Label7.userClick();
  EXPECT_TRUE(machine.capture.running());
}

TEST_F(RecordingTest, AStartEndsTheCalibration) {
  open();
  machine.dialogs.answer(Answer::Ok);
  form().Label7.userClick();
  machine.dialogs.chooseFile("C:\\rec\\a.wav");
  form().Label2[2].userClick();
  EXPECT_EQ(form().Label7.caption(), "Calibrate Sound levels");
  EXPECT_FALSE(machine.tone.playing());
  EXPECT_TRUE(section.recording());
}

TEST_F(RecordingTest, ExitEndsTheTone) {
  open();
  machine.dialogs.answer(Answer::Ok);
  form().Label7.userClick();
  form().Label1.userClick();
  EXPECT_FALSE(machine.tone.playing());
  EXPECT_EQ(form().Label7.caption(), "Calibrate Sound levels");
}

TEST_F(RecordingTest, WithoutAnOutputDeviceTheCalibrationSaysSoAndIsOff) {
  machine.tone.setPresent(false);
  open();
  machine.dialogs.answer(Answer::Ok);
  form().Label7.userClick();
  EXPECT_EQ(form().Label7.caption(), "Calibrate Sound levels");
  EXPECT_NE(form().notice.caption(), "");
  EXPECT_FALSE(machine.capture.running());
}

TEST_F(RecordingTest, TheProgramMayEndWhileTheCalibrationExplainsItself) {
  open();
  machine.windows.focus(form().Label7);
  playing.onStop = [this] { machine.timeline.post([this] { section.close(); }); };
  machine.dialogs.answer(Answer::Ok, 1s);
  form().Label7.userClick();
  EXPECT_FALSE(machine.tone.playing());
  EXPECT_FALSE(machine.capture.running());
}

}  // namespace
}  // namespace nerolith::recording
