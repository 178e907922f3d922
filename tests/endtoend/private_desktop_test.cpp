#include "endtoend/private_desktop.h"

#include <gtest/gtest.h>

#include <csignal>
#include <thread>

#include "endtoend/tones.h"

namespace nerolith::endtoend {
namespace {

TEST(PrivateDesktop, RecordsWhatAProgramPlaysWithoutAFault) {
  const PrivateDesktop desktop;
  writeWav(tone(1240, 2), desktop.music() / "tone.wav");
  const Recording recording(desktop);
  const double before = recording.now();
  EXPECT_EQ(runToEnd(desktop.command({"pacat", "--file-format=wav", "--device=card",
                                      (desktop.music() / "tone.wav").string()})),
            0);
  ASSERT_TRUE(recording.waitForSilence(0.3, 5));
  const Sound sound = recording.sound();
  const auto heard =
      stretchesAbove(envelopeOf(sound, 1240, before, sound.length()), kToneLevel - 6);
  ASSERT_EQ(heard.size(), 1u);
  EXPECT_NEAR(heard[0].to - heard[0].from, 1.99, 0.01);
  EXPECT_EQ(describe(clicksIn(sound, before, sound.length())), "none");
}

TEST(PrivateDesktop, TheControlToneShowsThatItsProgramWasHeldUp) {
  const PrivateDesktop desktop;
  Recording recording(desktop);
  const double before = recording.now();
  std::this_thread::sleep_for(std::chrono::milliseconds(500));
  const double held = recording.now();
  EXPECT_EQ(describe(controlGaps(recording.sound(), before, held - 0.1)), "none");

  recording.controlTone().signal(SIGSTOP);
  std::this_thread::sleep_for(std::chrono::milliseconds(400));
  recording.controlTone().signal(SIGCONT);
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  EXPECT_EQ(controlGaps(recording.sound(), held - 0.1, recording.now() - 0.1).size(), 1u);
}

TEST(PrivateDesktop, LeavesNothingBehind) {
  std::filesystem::path folder;
  pid_t process = 0;
  {
    const PrivateDesktop desktop;
    folder = desktop.scratch();
    ChildProcess sleeper(desktop.command({"sleep", "60"}));
    process = sleeper.pid();
    EXPECT_EQ(::kill(process, 0), 0);
  }
  EXPECT_FALSE(std::filesystem::exists(folder));
  EXPECT_NE(::kill(process, 0), 0);
}

}  // namespace
}  // namespace nerolith::endtoend
