#include "app/now_playing.h"

#include <gtest/gtest.h>

namespace nerolith::app {
namespace {

TEST(LeapWatch, PlayingOnIsNoLeap) {
  LeapWatch watch;
  watch.leapt(1, 0, true);
  for (int tick = 1; tick < 50; ++tick) EXPECT_FALSE(watch.leapt(1, tick * 0.1, true)) << tick;
}

TEST(LeapWatch, ATickThatComesLateIsNoLeap) {
  LeapWatch watch;
  watch.leapt(1, 5.0, true);
  EXPECT_FALSE(watch.leapt(1, 5.5, true));
}

TEST(LeapWatch, ASeekIsOneForwardBackAndWhilePaused) {
  LeapWatch watch;
  watch.leapt(1, 5.0, true);
  EXPECT_TRUE(watch.leapt(1, 7.0, true));
  EXPECT_TRUE(watch.leapt(1, 3.0, true));
  EXPECT_FALSE(watch.leapt(1, 3.0, false));
  EXPECT_TRUE(watch.leapt(1, 9.0, false));
  EXPECT_FALSE(watch.leapt(1, 9.0, false));
}

TEST(LeapWatch, AnotherSongIsNone) {
  LeapWatch watch;
  watch.leapt(1, 50.0, true);
  EXPECT_FALSE(watch.leapt(2, 0.1, true));
  EXPECT_FALSE(watch.leapt(0, 0, false));
  EXPECT_FALSE(watch.leapt(0, 30, false));
}

TEST(LeapWatch, GoingOnAfterTheSoundServerWasAwayIsOne) {
  LeapWatch watch;
  watch.leapt(1, 5.0, true);
  for (int tick = 0; tick < 10; ++tick) EXPECT_FALSE(watch.leapt(1, 5.0, true));
  EXPECT_TRUE(watch.leapt(1, 5.1, true));
  EXPECT_FALSE(watch.leapt(1, 5.2, true));
}

TEST(LeapWatch, APauseIsNoStandstill) {
  LeapWatch watch;
  watch.leapt(1, 5.0, true);
  for (int tick = 0; tick < 10; ++tick) EXPECT_FALSE(watch.leapt(1, 5.0, false));
  EXPECT_FALSE(watch.leapt(1, 5.1, true));
}

TEST(NowPlaying, LoudnessIsAFactorOfHundredths) {
  EXPECT_EQ(loudnessOf(0), 1.0);
  EXPECT_EQ(loudnessOf(-500), 0.56);
  EXPECT_EQ(loudnessOf(-2000), 0.1);
  EXPECT_EQ(loudnessOf(-10000), 0.0);
}

class NextPossible : public testing::Test {
 protected:
  NextPossible() { form.List1.setItems({"a.mp3", "b.mp3", "c.mp3"}); }
  forms::MainForm form;
};

TEST_F(NextPossible, InSingleOnlyByTheLoop) {
  form.Option1.setValue(true);
  form.List1.setListIndex(1);
  EXPECT_FALSE(canGoNext(form));
  form.Check1.setValue(1);
  EXPECT_TRUE(canGoNext(form));
  form.List1.setListIndex(-1);
  EXPECT_FALSE(canGoNext(form));
}

TEST_F(NextPossible, InAutoNextUpToTheLastSongAndBeyondItByTheLoop) {
  form.Option2.setValue(true);
  form.List1.setListIndex(1);
  EXPECT_TRUE(canGoNext(form));
  form.List1.setListIndex(2);
  EXPECT_FALSE(canGoNext(form));
  form.Check1.setValue(1);
  EXPECT_TRUE(canGoNext(form));
}

TEST_F(NextPossible, InRandomAlways) {
  form.Option3.setValue(true);
  EXPECT_TRUE(canGoNext(form));
}

TEST_F(NextPossible, NeverWithoutSongs) {
  form.List1.setItems({});
  form.Option3.setValue(true);
  form.Check1.setValue(1);
  EXPECT_FALSE(canGoNext(form));
}

TEST(NowPlaying, TheLoopRepeatsTheSongInSingleAndTheListElsewhere) {
  forms::MainForm form;
  form.Option1.setValue(true);
  EXPECT_EQ(repeatOf(form), platform::Repeat::Off);
  form.Check1.setValue(1);
  EXPECT_EQ(repeatOf(form), platform::Repeat::Song);
  form.Option2.setValue(true);
  EXPECT_EQ(repeatOf(form), platform::Repeat::List);
  form.Option3.setValue(true);
  EXPECT_EQ(repeatOf(form), platform::Repeat::List);
}

}  // namespace
}  // namespace nerolith::app
