// What every capture must do, whichever machine it listens to.
#pragma once

#include <gtest/gtest.h>

#include "contracts/sound_rig.h"
#include "platform/failure.h"

namespace nerolith::contracts {

template <class Rig>
class SoundCaptureContract : public testing::Test {
 protected:
  static constexpr std::int32_t kBytes = 705600;  // four seconds
  using Buffer = std::unique_ptr<platform::CaptureBuffer>;

  void SetUp() override {
    if (!rig.unavailable().empty()) GTEST_SKIP() << rig.unavailable();
    device = rig.capture().openDefaultDevice();
  }
  Buffer fresh(std::int32_t bytes = kBytes) { return device->createBuffer(kStereo, bytes); }
  Buffer running(std::int32_t bytes = kBytes) {
    Buffer buffer = fresh(bytes);
    buffer->startLooping();
    return buffer;
  }
  /// The read cursor in seconds.
  static double captured(const Buffer& buffer) { return buffer->cursors().read / 176400.0; }
  /// Waits until the cursor has left its place: real devices take a moment to begin.
  void waitForSound(const Buffer& buffer) {
    const auto from = buffer->cursors().read;
    ASSERT_TRUE(rig.within(3, [&] { return buffer->cursors().read != from; }));
  }

  Rig rig;
  std::unique_ptr<platform::CaptureDevice> device;
};

TYPED_TEST_SUITE_P(SoundCaptureContract);

TYPED_TEST_P(SoundCaptureContract, FreshBufferStandsAtZeroAndHoldsSilence) {
  this->rig.play(20000);
  const auto buffer = this->fresh();
  this->rig.pass(0.3);
  EXPECT_EQ(buffer->cursors().read, 0);
  std::vector<std::int16_t> samples(this->kBytes / 2, 1);
  buffer->read(0, this->kBytes, samples);
  EXPECT_EQ(peakOf(samples), 0);
}

TYPED_TEST_P(SoundCaptureContract, ReadCursorFollowsTheClock) {
  const auto buffer = this->running();
  this->waitForSound(buffer);
  const double from = this->captured(buffer);
  this->rig.pass(1);
  EXPECT_NEAR(this->captured(buffer) - from, 1, this->rig.slack());
}

TYPED_TEST_P(SoundCaptureContract, CursorsAreWholeSamplesInsideTheBuffer) {
  constexpr std::int32_t kShort = 35280;  // a fifth of a second
  const auto buffer = this->running(kShort);
  for (int i = 0; i < 50; ++i) {
    this->rig.pass(0.013);
    const auto cursors = buffer->cursors();
    for (const std::int32_t cursor : {cursors.read, cursors.capture}) {
      EXPECT_EQ(cursor % 4, 0);
      EXPECT_GE(cursor, 0);
      EXPECT_LT(cursor, kShort);
    }
  }
}

TYPED_TEST_P(SoundCaptureContract, CursorGoesRoundAndRoundAsFastAsTheClock) {
  const auto buffer = this->running(88200);  // half a second
  this->waitForSound(buffer);
  std::int32_t last = buffer->cursors().read, total = 0;
  for (int i = 0; i < 75; ++i) {
    this->rig.pass(0.02);
    const std::int32_t now = buffer->cursors().read;
    total += (now - last + 88200) % 88200;
    last = now;
  }
  // Behind the clock as it asks, a real machine sleeps longer than it was told.
  EXPECT_GT(total / 176400.0, 1.5 - this->rig.slack());
}

TYPED_TEST_P(SoundCaptureContract, WhatIsPlayedIsCapturedAtItsLevel) {
  const auto buffer = this->running();
  for (const int peak : {20000, 5000}) {
    this->rig.play(peak);
    EXPECT_TRUE(this->rig.within(
        3, [&] { return std::abs(newestPeak(*buffer, this->kBytes, 0.05) - peak) <= peak / 50; }))
        << newestPeak(*buffer, this->kBytes, 0.05) << " instead of " << peak;
  }
}

TYPED_TEST_P(SoundCaptureContract, SilenceIsCapturedAsSilence) {
  this->rig.play(0);
  const auto buffer = this->running();
  this->waitForSound(buffer);
  this->rig.pass(0.5);
  EXPECT_EQ(newestPeak(*buffer, this->kBytes, 0.2), 0);
}

TYPED_TEST_P(SoundCaptureContract, StoppedBufferKeepsItsSoundAndGoesOnFromThere) {
  this->rig.play(20000);
  const auto buffer = this->running();
  ASSERT_TRUE(this->rig.within(3, [&] { return newestPeak(*buffer, this->kBytes, 0.02) > 19000; }));
  buffer->stop();
  const auto stopped = buffer->cursors().read;
  EXPECT_GT(newestPeak(*buffer, this->kBytes, 0.1), 19000);
  this->rig.pass(0.2);
  buffer->startLooping();
  this->waitForSound(buffer);
  const auto now = buffer->cursors().read;
  EXPECT_GT((now - stopped + this->kBytes) % this->kBytes, 0);
  EXPECT_LT((now - stopped + this->kBytes) % this->kBytes, 176400);
}

TYPED_TEST_P(SoundCaptureContract, StopFreezesTheCursorAndDoingThingsTwiceIsNoHarm) {
  const auto buffer = this->running();
  this->waitForSound(buffer);
  this->rig.pass(0.3);
  const auto before = buffer->cursors().read;
  buffer->startLooping();
  EXPECT_GE(buffer->cursors().read, before) << "it does not begin again";
  buffer->stop();
  const auto stopped = buffer->cursors().read;
  EXPECT_NO_THROW(buffer->stop());
  this->rig.pass(0.3);
  EXPECT_EQ(buffer->cursors().read, stopped);
}

TYPED_TEST_P(SoundCaptureContract, ReadingGoesRoundTheBuffersEnd) {
  constexpr std::int32_t kShort = 88200;
  this->rig.play(20000);
  const auto buffer = this->running(kShort);
  ASSERT_TRUE(this->rig.within(3, [&] { return newestPeak(*buffer, kShort, 0.4) > 19000; }));
  this->rig.pass(0.6);
  buffer->stop();
  std::vector<std::int16_t> tail(500), front(500), both(1000);
  buffer->read(kShort - 1000, 1000, tail);
  buffer->read(0, 1000, front);
  buffer->read(kShort - 1000, 2000, both);
  tail.insert(tail.end(), front.begin(), front.end());
  EXPECT_EQ(both, tail);
  EXPECT_GT(peakOf(both), 19000);
}

TYPED_TEST_P(SoundCaptureContract, ReadingLeavesTheRestOfTheSamplesAsTheyWere) {
  const auto buffer = this->fresh();
  std::vector<std::int16_t> samples(20, 7);
  buffer->read(0, 20, samples);
  EXPECT_EQ(std::vector<std::int16_t>(samples.begin() + 10, samples.end()),
            std::vector<std::int16_t>(10, 7));
  EXPECT_EQ(samples[9], 0);
  buffer->read(0, 0, samples);
  EXPECT_EQ(samples[19], 7);
}

TYPED_TEST_P(SoundCaptureContract, AllOfTheBufferMayBeReadFromAnyPlaceAndNoMore) {
  const auto buffer = this->fresh();
  std::vector<std::int16_t> samples(this->kBytes / 2 + 100);
  EXPECT_NO_THROW(buffer->read(this->kBytes - 4, this->kBytes, samples));
  EXPECT_THROW(buffer->read(-2, 4, samples), platform::Failure);
  EXPECT_THROW(buffer->read(this->kBytes, 4, samples), platform::Failure);
  EXPECT_THROW(buffer->read(0, -2, samples), platform::Failure);
  EXPECT_THROW(buffer->read(0, this->kBytes + 4, samples), platform::Failure);
  EXPECT_THROW(buffer->read(0, 12, std::span(samples).first(5)), platform::Failure);
}

TYPED_TEST_P(SoundCaptureContract, NewBufferBeginsAtZeroAgain) {
  auto buffer = this->running();
  this->waitForSound(buffer);
  this->rig.pass(1);
  buffer.reset();
  buffer = this->running();
  EXPECT_LT(this->captured(buffer), this->rig.slack());
  this->waitForSound(buffer);
}

TYPED_TEST_P(SoundCaptureContract, ThereIsNoTroubleWhileAllIsWell) {
  const auto buffer = this->running();
  this->waitForSound(buffer);
  EXPECT_EQ(this->rig.capture().captureTrouble(), "");
}

REGISTER_TYPED_TEST_SUITE_P(SoundCaptureContract, FreshBufferStandsAtZeroAndHoldsSilence,
                            ReadCursorFollowsTheClock, CursorsAreWholeSamplesInsideTheBuffer,
                            CursorGoesRoundAndRoundAsFastAsTheClock,
                            WhatIsPlayedIsCapturedAtItsLevel, SilenceIsCapturedAsSilence,
                            StoppedBufferKeepsItsSoundAndGoesOnFromThere,
                            StopFreezesTheCursorAndDoingThingsTwiceIsNoHarm,
                            ReadingGoesRoundTheBuffersEnd,

                            ReadingLeavesTheRestOfTheSamplesAsTheyWere,
                            AllOfTheBufferMayBeReadFromAnyPlaceAndNoMore,
                            NewBufferBeginsAtZeroAgain, ThereIsNoTroubleWhileAllIsWell);

}  // namespace nerolith::contracts
