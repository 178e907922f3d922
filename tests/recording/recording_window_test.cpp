#include "recording/recording_texts.h"
#include "recording_rig.h"

namespace nerolith::recording {
namespace {

TEST_F(RecordingTest, NothingIsCapturedBeforeTheSectionIsNeeded) {
  section.volumeCorrectionStep();
  section.placeBesideMainWindow();
  EXPECT_FALSE(section.adjustEnabled());
  EXPECT_FALSE(section.recording());
  machine.advance(10s);
  EXPECT_EQ(machine.trace(), "");
}

TEST_F(RecordingTest, LoadingWithTheAdjustOffStopsTheCaptureAndWritesFalse) {
  window();
  EXPECT_EQ(machine.trace({Door::Capture, Door::Settings}),
            "capture.open | capture.create 705600 | capture.start | capture.stop | "
            "settings.write Nerolith/Setting/adjust=False");
  EXPECT_TRUE(window().ready());
  EXPECT_FALSE(window().adjustEnabled());
  EXPECT_EQ(form().Label8.caption(), "disabled");
}

TEST_F(RecordingTest, LoadingWithTheAdjustOnGoesOnMetering) {
  storeAdjust("True");
  window();
  EXPECT_EQ(machine.trace({Door::Capture, Door::Settings}),
            "capture.open | capture.create 705600 | capture.start");
  EXPECT_TRUE(window().adjustEnabled());
  EXPECT_EQ(form().Label8.caption(), "enabled");
}

TEST_F(RecordingTest, TheAdjustIsToggledByItsStatusAndByItsKeyAndStored) {
  storeAdjust("True");
  open();
  form().Label8.userClick();
  EXPECT_EQ(form().Label8.caption(), "disabled");
  EXPECT_EQ(storedAdjust(), "False");
  EXPECT_FALSE(machine.capture.running());
  form().Label4.userClick();
  EXPECT_EQ(form().Label8.caption(), "enabled");
  EXPECT_EQ(storedAdjust(), "True");
  EXPECT_TRUE(machine.capture.running());
}

TEST_F(RecordingTest, TheControlsBeginAsDesigned) {
  open();
  EXPECT_EQ(form().Label1.caption(), "Exit");
  EXPECT_EQ(form().Label2[0].caption(), "Select Filename for Recording");
  EXPECT_EQ(form().Label2[1].caption(), "Record from playlist to selected filename");
  EXPECT_EQ(form().Label2[2].caption(), "Start playing and record the sound to the selected file");
  EXPECT_EQ(form().Label2[3].caption(), "Fade out and stop Recording");
  EXPECT_EQ(form().Label2[4].caption(), "Information about volumesettings");
  EXPECT_EQ(form().Label6[0].caption(), "Stop recording at           Min.");
  EXPECT_EQ(form().Label6[1].caption(), "Stop recording at           MB");
  EXPECT_EQ(form().Label7.caption(), "Calibrate Sound levels");
  EXPECT_EQ(form().Frame1.caption(), "Info");
  EXPECT_EQ(form().Text1[0].text() + form().Text1[1].text(), "");
  EXPECT_EQ(form().Timer1.interval(), 100ms);
  EXPECT_EQ(form().Timer2.interval(), 500ms);
  EXPECT_TRUE(form().Timer1.enabled());
  EXPECT_FALSE(form().Timer2.enabled());
}

TEST_F(RecordingTest, OpeningCapturesAnewWhenTheAdjustIsOn) {
  storeAdjust("True");
  window();
  machine.clearTrace();
  section.open();
  EXPECT_EQ(sound(), "capture.release | capture.create 705600 | capture.start");
  EXPECT_TRUE(form().form.visible());
  EXPECT_TRUE(window().recordWindowShown());
}

TEST_F(RecordingTest, WithoutACaptureDeviceTheMenuSaysSoAndShowsNoWindow) {
  machine.capture.setPresent(false);
  machine.dialogs.answer(Answer::Ok);
  section.open();
  EXPECT_EQ(machine.dialogs.lastMessage().text,
            "Error implementing Sound Recorder.\r\n"
            "DirectX 8 or better must be installed,\r\n"
            "in order to be able to do sound recording\r\n"
            "and automatic volume correction.\r\n" +
                machine.capture.whereToObtain() +
                "\r\n"
                "On top of that you have to use a soundcard\r\n"
                "that supports Full Duplex.");
  EXPECT_EQ(machine.dialogs.lastMessage().icon, platform::MessageIcon::Information);
  EXPECT_FALSE(form().form.visible());
  EXPECT_FALSE(window().recordWindowShown());
}

TEST_F(RecordingTest, ADeviceThatCannotDeliverTheFormatIsNoDevice) {
  machine.capture.setDeliverable(false);
  machine.dialogs.answer(Answer::Ok);
  section.open();
  EXPECT_FALSE(window().ready());
  EXPECT_EQ(machine.dialogs.unusedAnswers(), 0U);
}

TEST_F(RecordingTest, ADeviceThatCameLaterIsFoundByOpeningAgain) {
  machine.capture.setPresent(false);
  machine.dialogs.answer(Answer::Ok);
  section.open();
  machine.capture.setPresent(true);
  section.open();
  EXPECT_TRUE(window().ready());
  EXPECT_TRUE(form().form.visible());
}

TEST_F(RecordingTest, TheWindowHidesAndComesBackWithTheMainWindow) {
  open();
  mainForm.setVisible(false);
  machine.advance(100ms);
  EXPECT_FALSE(form().form.visible());
  mainForm.setVisible(true);
  machine.advance(100ms);
  EXPECT_TRUE(form().form.visible());
  form().Label1.userClick();
  machine.advance(100ms);
  EXPECT_FALSE(form().form.visible());
}

TEST_F(RecordingTest, EveryTickOfThePlayerKeepsTheShownWindowBesideIt) {
  open();
  int placed = 0;
  const auto seen = form().form.besideRequested.subscribe([&] { ++placed; });
  section.placeBesideMainWindow();
  EXPECT_EQ(placed, 1);
  window().Label1_Click();
  section.placeBesideMainWindow();
  EXPECT_EQ(placed, 1);
}

TEST_F(RecordingTest, TheMeterShowsThePeakAndTheIndicatorItsColour) {
  storeAdjust("True");
  const auto shown = [this](std::int16_t level) {
    soundOf(level);
    machine.advance(1s);
    return form().Label5.backColour();
  };
  open();
  EXPECT_EQ(shown(21499), 49152U);
  EXPECT_EQ(shown(21500), 33023U);
  EXPECT_EQ(form().ProgressBar1.value(), 21500.0F / 32769.0F * 100.0F);
  EXPECT_EQ(shown(30000), 33023U);
  EXPECT_EQ(shown(30002), 255U);
}

TEST_F(RecordingTest, TypedLimitsKeepTheirNumberAndSetTheOtherBox) {
  open();
  form().Text1[0].setText("12abc");
  EXPECT_EQ(form().Text1[0].text(), "12");
  EXPECT_EQ(form().Text1[1].text(), "1");
  form().Text1[1].setText("74");
  EXPECT_EQ(form().Text1[0].text(), "746");
  EXPECT_EQ(form().Text1[1].text(), "74");
  form().Text1[0].setText("text");
  EXPECT_EQ(form().Text1[0].text(), "0");
  EXPECT_EQ(form().Text1[1].text(), "0");
  form().Text1[0].setText("99999999");
  EXPECT_EQ(form().Text1[1].text(), "9907180");
}

TEST_F(RecordingTest, TheTwoInformationKeysShowTheirTextsUnlessARecordingIsUnderWay) {
  open();
  machine.dialogs.answer(Answer::Ok);
  form().Label2[1].userClick();
  EXPECT_EQ(machine.dialogs.lastMessage().text, kHowToText);
  machine.dialogs.answer(Answer::Ok);
  form().Label2[4].userClick();
  EXPECT_EQ(machine.dialogs.lastMessage().text, kVolumeSettingsText);
  EXPECT_EQ(machine.dialogs.lastMessage().icon, platform::MessageIcon::None);
  record();
  machine.advance(3s);
  machine.clearTrace();
  window().Label2_Click(1);
  window().Label2_Click(4);
  EXPECT_EQ(asked(), "");
}

}  // namespace
}  // namespace nerolith::recording
