// The correction's steps between window, recorder and player.
#include "recording_rig.h"

namespace nerolith::recording {
namespace {

class CorrectionTest : public RecordingTest {
 protected:
  CorrectionTest() { storeAdjust("True"); }
  /// One second of sound, then one step.
  void stepAt(std::int16_t level) {
    soundOf(level);
    section.volumeCorrectionStep();
    machine.advance(1s);
    section.volumeCorrectionStep();
  }
  std::string caption() { return form().Label4.caption(); }
};

TEST_F(CorrectionTest, WithoutARecorderTheCaptionSaysSo) {
  machine.capture.setPresent(false);
  section.volumeCorrectionStep();
  EXPECT_EQ(caption(), "Error Volume adjust");
  EXPECT_EQ(playing.level, -500);
}

TEST_F(CorrectionTest, SwitchedOffItIsIdle) {
  window().Label4_Click();
  stepAt(30000);
  EXPECT_EQ(caption(), "Volume adjust");
  EXPECT_EQ(playing.level, -500);
}

TEST_F(CorrectionTest, ItsStatusIsThereTheMomentTheWindowIs) {
  storeAdjust("False");
  section.open();
  EXPECT_EQ(caption(), "Volume adjust");
  EXPECT_EQ(playing.level, -500);
}

TEST_F(CorrectionTest, ALoudSongIsLoweredAndAQuietOneRaised) {
  stepAt(26000);
  EXPECT_EQ(caption(), "Volume adjust <");
  EXPECT_EQ(playing.level, -594);  // 6 up before there was a level, then 100 down
  stepAt(21000);
  EXPECT_EQ(caption(), "Volume adjust |");
}

TEST_F(CorrectionTest, AQuietSongIsRaised) {
  stepAt(12000);
  EXPECT_EQ(playing.level, -488);
  EXPECT_EQ(caption(), "Volume adjust >");
}

TEST_F(CorrectionTest, WhileTheCurrentDeckFadesItsVolumeIsLeftAlone) {
  playing.fades = playing.currentFading = true;
  stepAt(30000);
  EXPECT_EQ(playing.level, -500);
}

TEST_F(CorrectionTest, WithNothingPlayingTheStepEndsQuietly) {
  playing.playing = false;
  stepAt(30000);
  EXPECT_EQ(playing.level, -500);
}

TEST_F(CorrectionTest, ARefusedVolumeLeavesTheCaption) {
  playing.level = 0;
  stepAt(12000);
  EXPECT_EQ(playing.level, 0);
  EXPECT_NE(caption(), "Volume adjust >");
}

TEST_F(CorrectionTest, TheFirstTickMakesTheWindowOnlyWhenTheAdjustIsOn) {
  section.volumeCorrectionStep();
  EXPECT_TRUE(machine.capture.running());
  EXPECT_TRUE(section.adjustEnabled());
}

}  // namespace
}  // namespace nerolith::recording
