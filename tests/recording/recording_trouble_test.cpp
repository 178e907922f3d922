// What goes wrong while a recording is under way.
#include "recording_rig.h"

namespace nerolith::recording {
namespace {

TEST_F(RecordingTest, AFullDiskEndsTheRecordingAndSaysSoInTheWindow) {
  record();
  machine.advance(3s);
  machine.output.setFreeSpace(1000);
  machine.advance(3s);
  EXPECT_FALSE(section.recording());
  EXPECT_FALSE(form().Timer2.enabled());
  EXPECT_NE(form().notice.caption(), "");
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

TEST_F(RecordingTest, EveryFailingDoorLeavesTheFileClosedAndThePlayerStopped) {
  record();
  machine.advance(3s);
  const std::uint64_t calls = [&] {
    const std::uint64_t before = machine.doorCalls();
    form().Label2[3].userClick();
    machine.advance(6s);
    return machine.doorCalls() - before;
  }();
  for (std::uint64_t n = 1; n <= calls; n += 1 + calls / 200) {
    machine.dialogs.chooseFile("C:\\rec\\" + std::to_string(n) + ".wav");
    window().Label2_Click(2);
    machine.advance(3s);
    machine.clearTrace();
    form().Label2[3].userClick();
    machine.failDoorCall(n);
    machine.advance(12s);
    machine.failDoorCall(0);
    EXPECT_EQ(count(asked(), "player.stop"), "1") << n;
    EXPECT_FALSE(section.recording()) << n;
    EXPECT_FALSE(form().Timer2.enabled()) << n;
    EXPECT_FALSE(machine.output.isOpen("C:\\rec\\" + std::to_string(n) + ".wav")) << n;
  }
}

}  // namespace
}  // namespace nerolith::recording
