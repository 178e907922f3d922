#include "recording/unfinished_recording.h"

#include "recording/recording_rig.h"
#include "recording/wave_model.h"

namespace nerolith::recording {
namespace {

constexpr char kCutOff[] = "C:\\rec\\cut off.wav";
constexpr char kFinished[] = "C:\\rec\\a.wav";

class Unfinished : public RecordingTest {
 protected:
  Unfinished() {
    machine.bytes.put(kCutOff, ruin());
    UnfinishedRecording(machine.settings).remember(kCutOff);
    machine.clearTrace();
  }
  static std::string ruin() { return model::header(0, 0) + model::halves(2); }
  std::string noted() { return UnfinishedRecording(machine.settings).path(); }
  std::string questions() { return machine.trace({Door::Dialogs}); }
};

TEST_F(Unfinished, IsRepairedWhenTheUserSaysYes) {
  machine.dialogs.answer(Answer::Yes);
  section.offerRepair();
  EXPECT_NE(machine.dialogs.lastMessage().text.find(kCutOff), std::string::npos);
  EXPECT_EQ(machine.output.bytes(kCutOff),
            model::header(2 * model::kHalf + 44, 2 * model::kHalf) + model::halves(2));
  EXPECT_EQ(noted(), "");
}

TEST_F(Unfinished, IsLeftAsItIsAndNotAskedForAgainWhenTheUserSaysNo) {
  machine.dialogs.answer(Answer::No);
  section.offerRepair();
  EXPECT_EQ(machine.output.bytes(kCutOff), ruin());
  EXPECT_EQ(noted(), "");
  machine.clearTrace();
  section.offerRepair();
  EXPECT_EQ(questions(), "");
}

TEST_F(Unfinished, IsNotAskedForWhileAnotherPlayerRecordsIt) {
  machine.output.lock(kCutOff);
  section.offerRepair();
  EXPECT_EQ(questions(), "");
  EXPECT_EQ(noted(), kCutOff);
}

TEST_F(Unfinished, WithoutANoteNothingIsAsked) {
  UnfinishedRecording(machine.settings).forget();
  section.offerRepair();
  EXPECT_EQ(questions(), "");
}

TEST_F(Unfinished, OneThatWasRepairedSinceIsNotAskedFor) {
  const std::string whole =
      model::header(2 * model::kHalf + 44, 2 * model::kHalf) + model::halves(2);
  machine.bytes.put(kCutOff, whole);
  section.offerRepair();
  EXPECT_EQ(questions(), "");
  EXPECT_EQ(noted(), "");
  EXPECT_EQ(machine.output.bytes(kCutOff), whole);
}

TEST_F(Unfinished, OneThatGrewBehindItsHeaderIsAskedFor) {
  // The server went away after two halves, came back, and the machine was switched off.
  machine.bytes.put(kCutOff,
                    model::header(2 * model::kHalf + 44, 2 * model::kHalf) + model::halves(3));
  machine.dialogs.answer(Answer::Yes);
  section.offerRepair();
  EXPECT_EQ(machine.output.bytes(kCutOff),
            model::header(3 * model::kHalf + 44, 3 * model::kHalf) + model::halves(3));
}

TEST_F(Unfinished, AFileThatHoldsNoSoundIsSaidSo) {
  machine.bytes.put(kCutOff, model::header(0, 0));
  machine.dialogs.answer(Answer::Yes);
  machine.dialogs.answer(Answer::Ok);
  section.offerRepair();
  EXPECT_EQ(machine.dialogs.lastMessage().icon, platform::MessageIcon::Critical);
  EXPECT_EQ(machine.dialogs.unusedAnswers(), 0U);
}

class StandardCopy : public RecordingTest {
 protected:
  StandardCopy() {
    record();
    machine.advance(5s);
    window().Label2_Click(3);
    machine.advance(10s);
  }
};

TEST_F(StandardCopy, IsOfferedAfterAStopAndSavedWithoutTheExtraSamples) {
  ASSERT_TRUE(form().standardCopy.visible());
  machine.dialogs.chooseFile("C:\\rec\\copy");
  form().standardCopy.userClick();
  const std::string& recorded = machine.output.bytes(kFinished);
  const std::string& copied = machine.output.bytes("C:\\rec\\copy.wav");
  const auto sound = static_cast<std::uint32_t>(copied.size() - 44);
  EXPECT_EQ(copied.substr(0, 44), model::header(sound + 36, sound));
  EXPECT_LT(copied.size(), recorded.size());
  EXPECT_EQ(form().outcome.caption(), "Copied");
}

TEST_F(StandardCopy, ThatCannotBeWrittenIsSaidSoAndTheRecordingStays) {
  const std::string recorded = machine.output.bytes(kFinished);
  machine.output.setFreeSpace(10);
  machine.dialogs.chooseFile("C:\\rec\\copy.wav");
  form().standardCopy.userClick();
  EXPECT_EQ(form().outcome.caption(), "Not copied");
  EXPECT_TRUE(form().standardCopy.enabled());
  EXPECT_EQ(machine.output.bytes(kFinished), recorded);
}

TEST_F(StandardCopy, ACancelledDialogCopiesNothing) {
  const std::string before = form().outcome.caption();
  machine.dialogs.cancelFile();
  form().standardCopy.userClick();
  EXPECT_EQ(form().outcome.caption(), before);
}

}  // namespace
}  // namespace nerolith::recording
