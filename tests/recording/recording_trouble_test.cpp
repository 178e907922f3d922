// What goes wrong while a recording is under way.
#include "recording/wave_model.h"
#include "recording_rig.h"

namespace nerolith::recording {
namespace {

constexpr char kFile[] = "C:\\rec\\a.wav";

TEST_F(RecordingTest, AFullDiskEndsTheRecordingAndSaysSoInTheWindow) {
  record();
  machine.advance(3s);
  machine.output.setFreeSpace(1000);
  machine.advance(3s);
  EXPECT_FALSE(section.recording());
  EXPECT_FALSE(form().Timer2.enabled());
  EXPECT_EQ(form().notice.caption(), "The recording has ended: the disk is full");
  EXPECT_EQ(asked(), "");  // no message box, and the player plays on
  EXPECT_EQ(form().outcome.caption(), "Recorded 0.3 MB");
}

TEST_F(RecordingTest, TroubleWithTheCaptureIsSaidWhileItLasts) {
  record();
  machine.advance(3s);
  machine.capture.goAway("The sound server does not answer.");
  machine.advance(1s);
  EXPECT_NE(form().notice.caption().find("does not answer"), std::string::npos);
  machine.capture.comeBack();
  machine.advance(1s);
  EXPECT_EQ(form().notice.caption(), "");
  EXPECT_TRUE(section.recording());
}

TEST_F(RecordingTest, MissedTicksAreCountedAndSaidAfterTheStop) {
  record();
  machine.advance(3s);
  machine.timeline.stall(9s);
  machine.advance(3s);
  EXPECT_EQ(form().notice.caption(), "");
  playing.stop();
  EXPECT_NE(form().notice.caption().find("seconds of sound are missing"), std::string::npos);
}

TEST_F(RecordingTest, AFolderThatIsRemovedEndsTheRecordingAndSaysSoInTheWindow) {
  record();
  machine.advance(3s);
  machine.files.remove(kFile);
  machine.advance(3s);
  EXPECT_FALSE(section.recording());
  EXPECT_EQ(form().notice.caption(), "The recording has ended, unfinished: no such file");
  EXPECT_EQ(asked(), "");
}

TEST_F(RecordingTest, AFileThatAnotherProgramTakesCanBeRepairedOnceItIsLetGo) {
  record();
  machine.advance(3s);
  machine.output.lock(kFile);
  machine.advance(3s);
  EXPECT_FALSE(section.recording());
  EXPECT_EQ(form().notice.caption(),
            "The recording has ended, unfinished: is held by another program");
  EXPECT_EQ(asked(), "");
  machine.output.unlock(kFile);
  machine.dialogs.answer(Answer::Yes);
  section.offerRepair();
  EXPECT_TRUE(model::isWhole(machine.output.bytes(kFile)));
}

TEST_F(RecordingTest, AFileThatAnotherProgramHoldsIsSaidSoAtTheStart) {
  machine.files.addFile(kFile);
  machine.output.lock(kFile);
  open();
  machine.dialogs.chooseFile(kFile);
  machine.dialogs.answer(Answer::Yes);
  form().Label2[2].userClick();
  EXPECT_FALSE(section.recording());
  EXPECT_NE(form().notice.caption().find("held by another program"), std::string::npos);
  EXPECT_EQ(asked().find("files.delete"), std::string::npos);
  EXPECT_EQ(form().chosenFile.text(), "");
}

TEST_F(RecordingTest, WhileTheSoundIsAwayTheFileIsWholeAndWithTheSoundItGrowsOn) {
  record();
  machine.advance(5s);
  machine.capture.goAway("The sound server does not answer.");
  machine.advance(1s);
  EXPECT_EQ(machine.output.bytes(kFile).size(), 44U + 2 * 352802U);
  EXPECT_TRUE(model::isWhole(machine.output.bytes(kFile)));
  machine.advance(20s);
  machine.capture.comeBack();
  machine.advance(5s);
  playing.stop();
  EXPECT_TRUE(model::isWhole(machine.output.bytes(kFile)));
  EXPECT_EQ(form().outcome.caption(), "Recorded 1.7 MB");  // the ten seconds that were heard
  EXPECT_EQ(form().notice.caption(), "");
}

/// A start, one half and a bit, a short fade and the stop, with one call that fails.
TEST_F(RecordingTest, EveryFailingDoorLeavesTheFileClosedAndThePlayerStopped) {
  playing.length = 0.3F;
  open();
  int whole = 0;
  for (std::uint64_t n = 1, before = 0; n == 1 || machine.doorway.faults() > before; ++n) {
    before = machine.doorway.faults();
    UnfinishedRecording(machine.settings).forget();
    if (machine.dialogs.unusedAnswers() == 0) machine.dialogs.chooseFile(kFile);
    machine.clearTrace();
    machine.failDoorCall(n);
    window().Label2_Click(2);
    machine.advance(2300ms);
    form().Label2[3].userClick();
    machine.advance(1s);
    machine.failDoorCall(0);
    const std::string bytes = machine.files.find(kFile) ? machine.output.bytes(kFile) : "";
    EXPECT_EQ(asked().rfind("player.stop"), asked().size() - 11) << n;
    EXPECT_FALSE(section.recording()) << n;
    EXPECT_FALSE(form().Timer2.enabled()) << n;
    // Without sound in it the file stays open until the next start.
    EXPECT_TRUE(bytes.size() <= 44 || !machine.output.isOpen(kFile)) << n;
    const bool good = bytes.size() > 44 && model::isWhole(bytes);
    EXPECT_TRUE(good || bytes.size() <= 44 || UnfinishedRecording(machine.settings).path() == kFile)
        << n << ": " << bytes.size();
    whole += good;
    machine.files.remove(kFile);
  }
  EXPECT_GT(whole, 50);
}

}  // namespace
}  // namespace nerolith::recording
