// Starting and stopping a recording.
#include "recording_rig.h"

namespace nerolith::recording {
namespace {

TEST_F(RecordingTest, StartStopsThePlayerBeginsTheFileAndPlays) {
  open();
  machine.dialogs.chooseFile("C:\\rec\\a.wav");
  form().Label2[2].userClick();
  EXPECT_EQ(machine.trace({Door::Events, Door::Dialogs, Door::Capture, Door::Output}),
            "dialogs.save Select Filename to record to | player.stop | capture.release | "
            "capture.create 705600 | output.create C:\\rec\\a.wav | output.append 20 | "
            "output.append 16 | output.append 8 | capture.start | player.play");
  EXPECT_TRUE(section.recording());
  EXPECT_TRUE(form().Timer2.enabled());
  EXPECT_EQ(machine.dialogs.lastFileQuestion().filter, "*.wav|*.wav");
  EXPECT_FALSE(machine.dialogs.lastFileQuestion().askBeforeReplacing);
}

TEST_F(RecordingTest, WhileRecordingTheSizeStandsInThePlaceOfTheCalibration) {
  record();
  machine.advance(2500ms);
  EXPECT_FALSE(form().Label7.visible());
  EXPECT_TRUE(form().Label3.visible());
  EXPECT_EQ(form().Label3.caption(), "Filesize: 0.3 MB");
  EXPECT_EQ(form().Text1[0].backColour(), 153U);
  EXPECT_EQ(form().Text1[1].backColour(), 153U);
  window().playerStopped();
  machine.advance(100ms);
  EXPECT_TRUE(form().Label7.visible());
  EXPECT_FALSE(form().Label3.visible());
  EXPECT_EQ(form().Label3.caption(), "");
  EXPECT_EQ(form().Text1[0].backColour(), 4210752U);
}

TEST_F(RecordingTest, CancellingTheFileOfAStartLeavesEverythingUnchanged) {
  open();
  machine.dialogs.cancelFile();
  form().Label2[2].userClick();
  EXPECT_EQ(asked(), "dialogs.save Select Filename to record to");
  EXPECT_FALSE(section.recording());
  machine.dialogs.chooseFile("C:\\rec\\a.wav");
  form().Label2[2].userClick();
  EXPECT_TRUE(section.recording());
}

TEST_F(RecordingTest, AStartAfterACancelledChoiceEndsOnceAndSaysWhy) {
  open();
  machine.dialogs.chooseFile("C:\\rec\\a.wav");
  form().Label2[0].userClick();
  machine.dialogs.cancelFile();
  form().Label2[0].userClick();
  form().Label2[2].userClick();
  EXPECT_FALSE(section.recording());
  EXPECT_NE(form().notice.caption(), "");
  form().Label2[2].userClick();
  EXPECT_TRUE(section.recording());
  EXPECT_EQ(form().notice.caption(), "");
}

TEST_F(RecordingTest, AnExistingFileIsAskedForAndDeletedOnYes) {
  machine.files.addFile("C:\\rec\\a.wav");
  open();
  machine.dialogs.chooseFile("C:\\rec\\a.wav");
  machine.dialogs.answer(Answer::Yes);
  form().Label2[0].userClick();
  EXPECT_EQ(asked(),
            "dialogs.save Select Filename to record to | "
            "dialogs.message File already exists. Overwrite file? | files.delete C:\\rec\\a.wav");
  // Looked at first: what cannot be had is not deleted.
  EXPECT_EQ(written(), "output.reopen C:\\rec\\a.wav | output.close");
  EXPECT_EQ(machine.dialogs.lastMessage().buttons, platform::MessageButtons::YesNo);
  EXPECT_EQ(form().chosenFile.text(), "C:\\rec\\a.wav");
}

TEST_F(RecordingTest, AFileThatWasStoppedTooEarlyCanBeChosenAgain) {
  record();
  machine.advance(1s);
  playing.stop();
  machine.dialogs.chooseFile("C:\\rec\\a.wav");
  machine.dialogs.answer(Answer::Yes);
  form().Label2[0].userClick();
  EXPECT_EQ(form().notice.caption(), "");
  form().Label2[2].userClick();
  EXPECT_TRUE(section.recording());
}

TEST_F(RecordingTest, ARefusedOverwriteCountsAsCancelled) {
  machine.files.addFile("C:\\rec\\a.wav");
  open();
  machine.dialogs.chooseFile("C:\\rec\\a.wav");
  machine.dialogs.answer(Answer::No);
  form().Label2[2].userClick();
  EXPECT_FALSE(section.recording());
  EXPECT_NE(machine.files.find("C:\\rec\\a.wav"), nullptr);
  EXPECT_EQ(asked().find("player"), std::string::npos);
}

TEST_F(RecordingTest, AReadOnlyFileThatCannotBeDeletedIsSaidInTheWindow) {
  machine.files.addFile("C:\\rec\\a.wav", {.readOnly = true});
  open();
  machine.dialogs.chooseFile("C:\\rec\\a.wav");
  machine.dialogs.answer(Answer::Yes);
  form().Label2[2].userClick();
  EXPECT_FALSE(section.recording());
  EXPECT_NE(form().notice.caption(), "");
  EXPECT_EQ(form().chosenFile.text(), "");
}

TEST_F(RecordingTest, ANameWithoutAnEndingGetsOne) {
  open();
  machine.dialogs.chooseFile("C:\\rec\\my.songs\\evening");
  window().Label2_Click(0);
  EXPECT_EQ(form().chosenFile.text(), "C:\\rec\\my.songs\\evening.wav");
}

TEST_F(RecordingTest, AFolderThatIsNotThereIsSaidInTheWindowAndMeteringGoesOn) {
  storeAdjust("True");
  open();
  machine.dialogs.chooseFile("C:\\nowhere\\a.wav");
  form().Label2[2].userClick();
  EXPECT_FALSE(section.recording());
  EXPECT_FALSE(form().Timer2.enabled());
  EXPECT_NE(form().notice.caption(), "");
  EXPECT_TRUE(machine.capture.running());
  machine.dialogs.chooseFile("C:\\rec\\a.wav");
  form().Label2[0].userClick();
  form().Label2[2].userClick();
  EXPECT_TRUE(section.recording());
  EXPECT_EQ(form().notice.caption(), "");
}

TEST_F(RecordingTest, FadeOutAndStopEndsHalfASecondAfterTheFade) {
  record();
  machine.advance(3s);
  machine.clearTrace();
  form().Label2[3].userClick();
  EXPECT_EQ(asked(), "player.fade");
  EXPECT_TRUE(section.recording());
  machine.advance(100ms);
  EXPECT_EQ(form().Text1[0].backColour(), 4210752U);
  machine.advance(5390ms);
  EXPECT_EQ(count(written(), "output.close"), "0");
  machine.advance(40ms);
  EXPECT_EQ(asked(), "player.fade | player.stop");
  EXPECT_EQ(count(written(), "output.close"), "1");
  EXPECT_FALSE(section.recording());
  EXPECT_FALSE(form().Timer2.enabled());
  EXPECT_FALSE(machine.capture.running());  // the adjust is off
  EXPECT_EQ(form().outcome.caption(), "Recorded 1.4 MB");
}

TEST_F(RecordingTest, TheRecorderWritesOnDuringTheFade) {
  record();
  machine.advance(2500ms);
  form().Label2[3].userClick();
  machine.clearTrace();
  machine.advance(5s);
  EXPECT_EQ(written(), "output.append 352802 | output.append 352802");
}

TEST_F(RecordingTest, AfterTheStopMeteringGoesOnWhenTheAdjustIsOn) {
  storeAdjust("True");
  record();
  machine.advance(3s);
  form().Label2[3].userClick();
  machine.advance(6s);
  EXPECT_TRUE(machine.capture.running());
}

TEST_F(RecordingTest, AChangedFadeLengthCountsDuringTheFade) {
  record();
  machine.advance(3s);
  form().Label2[3].userClick();
  playing.length = 1;
  machine.advance(1600ms);
  EXPECT_FALSE(section.recording());
}

TEST_F(RecordingTest, AFadeOverMidnightEndsInTime) {
  record();
  machine.advance(3s);
  machine.clock.set(45000, 24h - 2s);
  form().Label2[3].userClick();
  machine.advance(5400ms);
  EXPECT_TRUE(section.recording());
  machine.advance(200ms);
  EXPECT_FALSE(section.recording());
}

TEST_F(RecordingTest, ASecondStopBeginsItsOwnFadeAndTheFileIsFinishedOnce) {
  record();
  machine.advance(3s);
  machine.clearTrace();
  form().Label2[3].userClick();
  machine.advance(3s);
  form().Label2[3].userClick();
  machine.advance(5s);
  EXPECT_TRUE(section.recording());
  machine.advance(6s);
  EXPECT_EQ(asked(), "player.fade | player.fade | player.stop");
  EXPECT_EQ(count(written(), "output.close"), "1");
}

TEST_F(RecordingTest, ExitDuringTheFadeFinishesTheFileAndTheMusicFadesOn) {
  record();
  machine.advance(3s);
  machine.clearTrace();
  form().Label2[3].userClick();
  machine.advance(1s);
  form().Label1.userClick();
  EXPECT_EQ(count(written(), "output.close"), "1");
  EXPECT_EQ(asked(), "player.fade");
  machine.advance(10s);
  EXPECT_EQ(asked(), "player.fade | player.stop");
  EXPECT_EQ(count(written(), "output.close"), "1");
  EXPECT_FALSE(form().form.visible());
}

TEST_F(RecordingTest, ANewStartAfterAnExitDuringTheFadeIsNotEndedByThatFade) {
  record();
  machine.advance(3s);
  form().Label2[3].userClick();
  machine.advance(1s);
  form().Label1.userClick();
  section.open();
  machine.dialogs.chooseFile("C:\\rec\\b.wav");
  form().Label2[2].userClick();
  machine.advance(10s);
  EXPECT_TRUE(section.recording());
  EXPECT_GT(machine.output.bytes("C:\\rec\\b.wav").size(), 4 * 352800U);
}

/// Starts to record, and in the midst of the fade at its end again, into a file that takes that
/// long to be chosen.
class FadeCutShortTest : public RecordingTest {
 protected:
  void startAnewDuringTheFade(std::chrono::seconds choosing) {
    record();
    machine.advance(3s);
    machine.clearTrace();
    form().Label2[3].userClick();
    machine.advance(1s);
    machine.dialogs.chooseFile("C:\\rec\\b.wav", choosing);
    window().Label2_Click(2);
    EXPECT_EQ(
        asked(),
        "player.fade | dialogs.save Select Filename to record to | player.stop | player.play");
  }
};

TEST_F(FadeCutShortTest, ItStopsNothingWhileTheFileIsChosen) { startAnewDuringTheFade(10s); }

TEST_F(FadeCutShortTest, TheFileIsFinishedAndTheNextRecorded) {
  startAnewDuringTheFade(2s);
  machine.advance(20s);
  EXPECT_TRUE(section.recording());
  EXPECT_EQ(count(written(), "output.close"), "1");
  EXPECT_TRUE(machine.output.isOpen("C:\\rec\\b.wav"));
  EXPECT_EQ(count(asked(), "player.stop"), "1");
}

TEST_F(RecordingTest, ClosingTheProgramDuringTheFadeFinishesTheFileOnceAndNothingFollows) {
  record();
  machine.advance(3s);
  machine.clearTrace();
  form().Label2[3].userClick();
  machine.advance(1s);
  section.close();
  machine.advance(10s);
  EXPECT_EQ(count(written(), "output.close"), "1");
  EXPECT_EQ(asked(), "player.fade");
  EXPECT_FALSE(machine.capture.running());
}

TEST_F(RecordingTest, ThePlayersStopDuringTheFadeFinishesTheFileOnce) {
  record();
  machine.advance(3s);
  machine.clearTrace();
  form().Label2[3].userClick();
  machine.advance(1s);
  playing.stop();
  machine.advance(10s);
  EXPECT_EQ(asked(), "player.fade | player.stop");
  EXPECT_EQ(count(written(), "output.close"), "1");
}

TEST_F(RecordingTest, ThePlayersStopEndsTheRecordingAtOnce) {
  record();
  machine.advance(3s);
  machine.clearTrace();
  playing.stop();
  EXPECT_FALSE(section.recording());
  EXPECT_FALSE(form().Timer2.enabled());
  EXPECT_EQ(count(written(), "output.close"), "1");
}

TEST_F(RecordingTest, ExitStopsTheRecordingWithoutFadeAndThePlayingGoesOn) {
  record();
  machine.advance(3s);
  machine.clearTrace();
  form().Label1.userClick();
  machine.advance(10s);
  EXPECT_EQ(asked(), "");
  EXPECT_EQ(count(written(), "output.close"), "1");
  EXPECT_FALSE(section.recording());
  EXPECT_FALSE(window().recordWindowShown());
}

TEST_F(RecordingTest, TheWindowsCloseButtonIsExit) {
  record();
  machine.advance(3s);
  form().form.close();
  EXPECT_FALSE(section.recording());
  EXPECT_FALSE(window().recordWindowShown());
}

TEST_F(RecordingTest, ARecordingStoppedBeforeItsFirstHalfSaysThatNothingWasRecorded) {
  record();
  machine.advance(1s);
  playing.stop();
  EXPECT_FALSE(section.recording());
  EXPECT_EQ(machine.output.bytes("C:\\rec\\a.wav").size(), 44U);
  EXPECT_NE(form().notice.caption(), "");
  EXPECT_EQ(form().outcome.caption(), "");
}

TEST_F(RecordingTest, TheLimitBeginsTheFadeSoThatItsBytesStayInside) {
  record();
  form().Text1[0].setText("2");
  // 2 MB less 5 s of fade are 1215152 bytes: the fourth half exceeds them.
  machine.advance(7900ms);
  EXPECT_EQ(count(asked(), "player.fade"), "0");
  machine.advance(700ms);
  EXPECT_EQ(asked(), "player.fade");
  EXPECT_EQ(form().Label5.backColour(), 49152U);
  machine.advance(6s);
  EXPECT_EQ(asked(), "player.fade | player.stop");
  EXPECT_LE(machine.output.bytes("C:\\rec\\a.wav").size(), 2U * 1048576 + 352802);
}

TEST_F(RecordingTest, ALimitOfZeroOrOfTextNeverStops) {
  record();
  form().Text1[0].setText("none");
  machine.advance(60s);
  EXPECT_EQ(asked(), "");
  EXPECT_TRUE(section.recording());
}

TEST_F(RecordingTest, TheEndOfTheListFadesOutAndStopsOnce) {
  record();
  machine.advance(3s);
  section.stopAfterLastSong();
  machine.advance(6s);
  EXPECT_EQ(asked(), "player.fade | player.stop");
  section.stopAfterLastSong();
  machine.advance(6s);
  EXPECT_EQ(asked(), "player.fade | player.stop");
}

TEST_F(RecordingTest, FadeOutAndStopWithoutARecordingStopsThePlayer) {
  open();
  form().Label2[3].userClick();
  machine.advance(6s);
  EXPECT_EQ(asked(), "player.fade | player.stop");
  EXPECT_EQ(written(), "");
  EXPECT_FALSE(machine.capture.running());
}

TEST_F(RecordingTest, NoFileIsChosenWhileOneIsWritten) {
  record();
  EXPECT_FALSE(form().Label2[0].enabled());
  EXPECT_FALSE(form().Label2[2].enabled());
  window().Label2_Click(0);
  EXPECT_EQ(asked(), "");
}

TEST_F(RecordingTest, SwitchingTheAdjustKeepsTheRecordingsCapture) {
  record();
  machine.advance(3s);
  machine.clearTrace();
  form().Label8.userClick();
  section.open();
  form().Label8.userClick();
  EXPECT_EQ(sound(), "");
  EXPECT_EQ(storedAdjust(), "False");
  form().Label8.userClick();
  playing.stop();
  EXPECT_TRUE(machine.capture.running());
}

}  // namespace
}  // namespace nerolith::recording
