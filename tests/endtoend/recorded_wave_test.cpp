#include "endtoend/recorded_wave.h"

#include <gtest/gtest.h>

#include <fstream>

#include "endtoend/child_process.h"
#include "endtoend/recording_stage.h"
#include "endtoend/tones.h"

namespace nerolith::endtoend {
namespace {

TEST(PhaseLeaps, AreNoneInASteadyTone) {
  EXPECT_EQ(phaseLeaps(tone(1000, 3), 1000, 0.1, 2.9).size(), 0U);
}

TEST(PhaseLeaps, AreFoundWhereASingleSampleIsLostOrComesTwice) {
  for (const double hertz : {270.0, 1000.0, 5400.0}) {
    Sound lost = tone(hertz, 3), twice = lost;
    lost.samples.erase(lost.samples.begin() + 2 * Sound::kRate);
    twice.samples.insert(twice.samples.begin() + 2 * Sound::kRate, twice.samples[2 * Sound::kRate]);
    for (const Sound& sound : {lost, twice}) {
      const auto leaps = phaseLeaps(sound, hertz, 0.1, 2.9);
      ASSERT_FALSE(leaps.empty()) << hertz << " Hz";
      EXPECT_NEAR(leaps.front(), 2, 0.03);
      EXPECT_NEAR(leaps.back(), 2, 0.03);
    }
  }
}

TEST(PhaseLeaps, AreNoneWhereATonesVolumeFallsBesideAnother) {
  Sound mix = tone(1000, 5);
  const Sound other = tone(2890, 5);
  for (std::size_t i = 0; i < mix.samples.size(); ++i) {
    const double second = static_cast<double>(i) / Sound::kRate;
    mix.samples[i] = static_cast<float>(mix.samples[i] * (1 - second / 6)) + other.samples[i];
  }
  EXPECT_EQ(phaseLeaps(mix, 1000, 0.1, 4.9).size(), 0U);
}

TEST(LostIn, IsWhatTheRecordingLacksAndNotWhatTheCardPlayedBroken) {
  const Song song{{}, 1000, 0.1, 4.2};
  Sound card = songOf(1000, 4.2);
  card.samples.erase(card.samples.begin() + Sound::kRate, card.samples.begin() + 44100 + 250);
  Sound recorded = card;
  recorded.samples.erase(recorded.samples.begin(), recorded.samples.begin() + 3000);
  EXPECT_FALSE(phaseLeaps(recorded, 1000, 0.2, 3.8).empty());
  EXPECT_TRUE(lostIn(recorded, card, song).empty());
  recorded.samples.erase(recorded.samples.begin() + 2 * Sound::kRate);
  const auto lost = lostIn(recorded, card, song);
  ASSERT_FALSE(lost.empty());
  EXPECT_NEAR(lost.front(), 2, 0.03);
  EXPECT_NEAR(lost.back(), 2, 0.03);
}

class RecordedFile : public ::testing::Test {
 protected:
  static std::string little(std::uint32_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> (8 * i) & 0xff);
    return text;
  }
  static std::string header(std::uint32_t data) {
    return "RIFF" + little(data + 44, 4) + "WAVEfmt " + little(16, 4) + little(1, 2) +
           little(2, 2) + little(44100, 4) + little(176400, 4) + little(4, 2) + little(16, 2) +
           "data" + little(data, 4);
  }
  RecordedWave read(const std::string& bytes) {
    std::ofstream(scratch.path() / "it.wav", std::ios::binary) << bytes;
    return readRecorded(scratch.path() / "it.wav", complaints);
  }

  ScratchFolder scratch;
  Complaints complaints;
};

TEST_F(RecordedFile, LosesItsExtraSamples) {
  const std::string half(kHalfBytes, '\1');
  const auto wave =
      read(header(kHalfBytes + 8) + half + little(0, 2) + half.substr(0, 8) + little(0, 2));
  EXPECT_EQ(complaints, Complaints{});
  EXPECT_EQ(wave.sound.samples.size(), kHalfBytes / 4 + 2U);
  EXPECT_FLOAT_EQ(wave.sound.samples.back(), 257.0F / 32768);
}

TEST_F(RecordedFile, WithAHalfTooFewOrAFullExtraSampleIsComplainedOf) {
  const std::string half(kHalfBytes, '\1');
  read(header(2 * kHalfBytes) + half + little(0, 2) + little(0, 2));
  EXPECT_EQ(complaints.size(), 1U);
  complaints.clear();
  read(header(kHalfBytes) + half + little(5, 2) + little(0, 2));
  EXPECT_EQ(complaints.size(), 1U);
}

TEST_F(RecordedFile, ThatIsNoneIsComplainedOf) {
  read("");
  EXPECT_EQ(complaints.size(), 1U);
}

}  // namespace
}  // namespace nerolith::endtoend
