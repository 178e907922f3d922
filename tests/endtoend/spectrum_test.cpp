// The measuring tools are only worth something if they find what is wrong: each is shown a sound
// whose faults are known.
#include "endtoend/spectrum.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "endtoend/child_process.h"
#include "endtoend/mix_check.h"
#include "endtoend/tones.h"

namespace nerolith::endtoend {
namespace {

void add(Sound& sound, const Sound& other, double at, double decibels = 0) {
  const auto start = static_cast<std::size_t>(at * Sound::kRate);
  const auto gain = static_cast<float>(std::pow(10, decibels / 20));
  sound.samples.resize(std::max(sound.samples.size(), start + other.samples.size()));
  for (std::size_t i = 0; i < other.samples.size(); ++i)
    sound.samples[start + i] += gain * other.samples[i];
}

// Falls by `step` decibels every `period` seconds from `first` on, `count` times, then ends: what a
// deck does that fades out. Each step is ramped over 20 ms.
Sound fading(Sound sound, double first, double step, int count, double period = 0.1) {
  double gain = 1;
  for (std::size_t i = 0; i < sound.samples.size(); ++i) {
    const double steps = (static_cast<double>(i) / Sound::kRate - first) / period + 1;
    const int done = std::clamp(static_cast<int>(std::floor(steps)), 0, count + 1);
    const double target = done > count ? 0 : std::pow(10, -step * done / 20);
    const double before = done == 0 ? 1 : std::pow(10, -step * (done - 1) / 20);
    const double rate = std::abs(before - target) / (0.02 * Sound::kRate);
    gain = target < gain ? std::max(target, gain - rate) : gain;
    sound.samples[i] *= static_cast<float>(gain);
  }
  return sound;
}

// Two songs of 8 s, the second begins at 4 s; the first fades from 4.05 s on.
Sound mixOf(double step, double period = 0.1, double lead = 4) {
  Sound sound;
  add(sound, fading(tone(700, 8), 8.05 - lead, step, 21, period), 0);
  add(sound, tone(970, 8), 8 - lead);
  return sound;
}

std::vector<MixedSong> songsOfTheMix() { return {{"first", 700, 0, 8}, {"second", 970, 0, 8}}; }

Complaints faultsOf(const Sound& sound) {
  Complaints complaints;
  checkMixes(sound, songsOfTheMix(), {4, 2}, complaints);
  return complaints;
}

TEST(Spectrum, FindsWhereAToneBeginsAndEndsWithinFiveMilliseconds) {
  Sound sound;
  add(sound, tone(1240, 1.5), 0.7);
  const auto heard = stretchesAbove(envelopeOf(sound, 1240, 0, 3), kToneLevel - 6);
  ASSERT_EQ(heard.size(), 1u);
  EXPECT_NEAR(heard[0].from, 0.705, 0.005);
  EXPECT_NEAR(heard[0].to, 2.195, 0.005);
}

TEST(Spectrum, MeasuresAToneFiftyDecibelsBelowItsLoudNeighbour) {
  Sound sound;
  add(sound, tone(700, 2), 0);
  add(sound, tone(970, 2), 0, -50);
  EXPECT_NEAR(envelopeOf(sound, 970, 1, 1).level[0], kToneLevel - 50, 0.2);
  EXPECT_NEAR(envelopeOf(sound, 700, 1, 1).level[0], kToneLevel, 0.05);
}

TEST(Spectrum, FindsAGapOfFiveMilliseconds) {
  Sound sound = tone(700, 2);
  for (int i = 0; i < Sound::kRate * 5 / 1000; ++i) sound.samples[44100 + i] = 0;
  EXPECT_EQ(silencesIn(sound, 0.1, 1.9).size(), 1u);
  EXPECT_FALSE(clicksIn(sound, 0.1, 1.9).empty());
}

TEST(Spectrum, FindsNoGapInAMix) {
  EXPECT_EQ(describe(silencesIn(mixOf(2.38), 0.1, 11.9)), "none");
}

TEST(Spectrum, FindsAJumpOfOneAndAHalfPercentOfFullScale) {
  Sound sound = mixOf(2.38);
  EXPECT_EQ(describe(clicksIn(sound, 0, 12)), "none");
  for (std::size_t i = 100000; i < sound.samples.size(); ++i) sound.samples[i] += 0.015F;
  EXPECT_EQ(clicksIn(sound, 0, 12).size(), 1u);
}

TEST(Spectrum, FindsAHundredSamplesThatWereLeftOut) {
  Sound sound = tone(1240, 2);
  sound.samples.erase(sound.samples.begin() + 50000, sound.samples.begin() + 50100);
  const auto clicks = clicksIn(sound, 0.1, 1.9);
  ASSERT_EQ(clicks.size(), 1u);
  EXPECT_NEAR(clicks[0].at, 50000.0 / 44100, 0.005);
}

TEST(Spectrum, TellsThePositionInAClimbingTone) {
  const Sound sound = climbingTone(12);
  for (const double position : {1.0, 5.5, 11.0})
    EXPECT_NEAR(positionInClimb(strongestFrequencyAt(sound, position)), position, 0.01);
  EXPECT_EQ(strongestFrequencyAt(sound, 13), 0);
}

TEST(MixCheck, PassesAMixAsItShouldBe) { EXPECT_EQ(faultsOf(mixOf(2.38)), Complaints{}); }

TEST(MixCheck, FindsAFadeThatIsTooSteep) { EXPECT_NE(faultsOf(mixOf(2.5)), Complaints{}); }

TEST(MixCheck, FindsAFadeThatIsTooFlat) { EXPECT_NE(faultsOf(mixOf(2.3)), Complaints{}); }

TEST(MixCheck, FindsATimerThatIsTooSlow) { EXPECT_NE(faultsOf(mixOf(2.38, 0.108)), Complaints{}); }

TEST(MixCheck, FindsASongThatStartsTooLateOrTooEarly) {
  EXPECT_NE(faultsOf(mixOf(2.38, 0.1, 3.8)), Complaints{});
  EXPECT_NE(faultsOf(mixOf(2.38, 0.1, 4.2)), Complaints{});
}

TEST(MixCheck, FindsAClickAndAGap) {
  Sound clicking = mixOf(2.38);
  clicking.samples[90000] += 0.05F;
  EXPECT_EQ(faultsOf(clicking).size(), 1u);
  Sound broken = mixOf(2.38);
  for (int i = 0; i < 300; ++i) broken.samples[90000 + i] = 0;
  EXPECT_GE(faultsOf(broken).size(), 1u);
}

TEST(MixCheck, FindsASongThatIsNotHeard) { EXPECT_NE(faultsOf(tone(700, 8)), Complaints{}); }

TEST(Tones, LastAsLongInEveryFormatAsTheyWereMade) {
  const ScratchFolder folder;
  for (const char* name : {"a.wav", "b.mp3", "c.mp2", "d.aif", "e.wma"}) {
    const Song song = encode(songOf(970, 3), 970, folder.path() / name);
    EXPECT_NEAR(song.length, 3, 0.15) << name;
    EXPECT_NEAR(song.attack, 0.105, 0.06) << name;
    EXPECT_EQ(describe(clicksIn(decode(song.file), 0, 4)), "none") << name;
    RecordProperty(name, std::to_string(song.attack) + " " + std::to_string(song.length));
  }
}

}  // namespace
}  // namespace nerolith::endtoend
