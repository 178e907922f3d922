// What every tone must do, whichever machine plays it.
#pragma once

#include <gtest/gtest.h>

#include "contracts/sound_rig.h"
#include "platform/failure.h"

namespace nerolith::contracts {

template <class Rig>
class CalibrationToneContract : public testing::Test {
 protected:
  static constexpr std::int32_t kBytes = 44100;  // half a second of mono
  using Buffer = std::unique_ptr<platform::ToneBuffer>;

  void SetUp() override {
    if (!rig.unavailable().empty()) GTEST_SKIP() << rig.unavailable();
  }
  Buffer written(int peak) {
    Buffer buffer = rig.tone().createBuffer(kMono, kBytes);
    buffer->write(squareWave(kBytes / 2, peak));
    return buffer;
  }
  bool becomes(int peak) {
    return rig.within(3, [&] { return std::abs(rig.heard() - peak) <= peak / 50; });
  }

  Rig rig;
};

TYPED_TEST_SUITE_P(CalibrationToneContract);

TYPED_TEST_P(CalibrationToneContract, IsSilentUntilItPlays) {
  const auto buffer = this->written(17000);
  this->rig.heard();
  this->rig.pass(0.5);
  EXPECT_EQ(this->rig.heard(), 0);
}

TYPED_TEST_P(CalibrationToneContract, IsHeardAtItsLevelLongerThanItsBuffer) {
  const auto buffer = this->written(17000);
  buffer->playLooping();
  ASSERT_TRUE(this->becomes(17000)) << this->rig.heard();
  this->rig.pass(1.5);
  EXPECT_TRUE(this->becomes(17000)) << this->rig.heard();
}

TYPED_TEST_P(CalibrationToneContract, StopSilencesAndPlayIsHeardAgain) {
  const auto buffer = this->written(17000);
  buffer->playLooping();
  ASSERT_TRUE(this->becomes(17000));
  buffer->stop();
  EXPECT_TRUE(this->becomes(0));
  this->rig.pass(0.5);
  EXPECT_TRUE(this->becomes(0));
  buffer->playLooping();
  EXPECT_TRUE(this->becomes(17000));
}

TYPED_TEST_P(CalibrationToneContract, DestroyingItSilencesIt) {
  auto buffer = this->written(17000);
  buffer->playLooping();
  ASSERT_TRUE(this->becomes(17000));
  buffer.reset();
  EXPECT_TRUE(this->becomes(0));
}

TYPED_TEST_P(CalibrationToneContract, PlayingAndStoppingTwiceIsNoHarm) {
  const auto buffer = this->written(17000);
  EXPECT_NO_THROW(buffer->stop());
  buffer->playLooping();
  buffer->playLooping();
  EXPECT_TRUE(this->becomes(17000));
  buffer->stop();
  EXPECT_NO_THROW(buffer->stop());
  EXPECT_TRUE(this->becomes(0));
}

TYPED_TEST_P(CalibrationToneContract, MoreSamplesThanFitAreLeftOutAndFewerFail) {
  const auto buffer = this->written(17000);
  auto samples = squareWave(this->kBytes / 2, 9000);
  samples.resize(this->kBytes, std::int16_t{30000});
  buffer->write(samples);
  EXPECT_THROW(buffer->write(std::span(samples).first(this->kBytes / 2 - 1)), platform::Failure);
  buffer->playLooping();
  EXPECT_TRUE(this->becomes(9000)) << this->rig.heard();
}

REGISTER_TYPED_TEST_SUITE_P(CalibrationToneContract, IsSilentUntilItPlays,
                            IsHeardAtItsLevelLongerThanItsBuffer, StopSilencesAndPlayIsHeardAgain,
                            DestroyingItSilencesIt, PlayingAndStoppingTwiceIsNoHarm,
                            MoreSamplesThanFitAreLeftOutAndFewerFail);

}  // namespace nerolith::contracts
