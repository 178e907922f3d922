#include "platform/linux/sound/midi_score.h"

#include <gtest/gtest.h>

#include "linux_sound/midi_file.h"

namespace nerolith::sound {
namespace {

using sound_tests::midiFile;
using sound_tests::midiTrack;

TEST(MidiScore, TimesEventsByTheUsualTempoWhereNoneIsTold) {
  const auto score = parseMidi(midiFile(
      480, {midiTrack({0x00, 0x90, 60, 100, 0x83, 0x60, 0x80, 60, 0, 0x00, 0xFF, 0x2F, 0x00})}));
  ASSERT_TRUE(score);
  ASSERT_EQ(score->events.size(), 2U);
  EXPECT_EQ(score->events[0].frame, 0);
  EXPECT_EQ(score->events[1].frame, 22050);  // 480 ticks: a quarter, half a second
  EXPECT_EQ(score->frames, 22050);
}

TEST(MidiScore, FollowsTempoChangesOfAnotherTrack) {
  // After one quarter the tempo halves to a second for each quarter.
  const auto tempo = midiTrack({0x60, 0xFF, 0x51, 3, 0x0F, 0x42, 0x40, 0x00, 0xFF, 0x2F, 0x00});
  const auto notes = midiTrack({0x00, 0x90, 60, 100, 0x81, 0x40, 60, 0, 0x00, 0xFF, 0x2F, 0x00});
  const auto score = parseMidi(midiFile(96, {tempo, notes}));
  ASSERT_TRUE(score);
  EXPECT_EQ(score->frames, 22050 + 44100);
  EXPECT_EQ(score->events.back().status, 0x90) << "running status";
}

TEST(MidiScore, UnderstandsFilmTime) {
  // 25 frames of 40 ticks a second: a tick is a millisecond.
  const auto score = parseMidi(midiFile(
      0xE728, {midiTrack({0x00, 0x90, 60, 100, 0x87, 0x68, 0x80, 60, 0, 0x00, 0xFF, 0x2F, 0x00})}));
  ASSERT_TRUE(score);
  EXPECT_EQ(score->frames, 44100);
}

TEST(MidiScore, KeepsWhatATrackCutShortHolds) {
  auto bytes = midiFile(
      480, {midiTrack({0x00, 0x90, 60, 100, 0x83, 0x60, 0x80, 60, 0, 0x00, 0xFF, 0x2F, 0})});
  bytes.resize(bytes.size() - 6);
  const auto score = parseMidi(bytes);
  ASSERT_TRUE(score);
  EXPECT_GE(score->events.size(), 1U);
}

TEST(MidiScore, IsNoneForOtherFilesAndForOnesWithoutEvents) {
  const std::vector<std::uint8_t> text(100, 'x');
  EXPECT_FALSE(parseMidi(text));
  EXPECT_FALSE(parseMidi({}));
  EXPECT_FALSE(parseMidi(midiFile(480, {midiTrack({0x00, 0xFF, 0x2F, 0x00})})));
}

TEST(MidiScore, SurvivesEveryCutAndEveryDamagedByte) {
  const auto whole = midiFile(480, {midiTrack({0x00, 0xF0, 3,    1,    2,    0xF7, 0x00, 0x90, 60,
                                               100,  0x83, 0x60, 0x80, 60,   0,    0x00, 0xFF, 0x51,
                                               3,    7,    8,    9,    0x00, 0xFF, 0x2F, 0x00})});
  for (std::size_t i = 0; i < whole.size(); ++i) {
    parseMidi(std::span(whole).first(i));
    auto damaged = whole;
    damaged[i] ^= 0xFF;
    const auto score = parseMidi(damaged);
    if (score) {
      EXPECT_GE(score->frames, 0);
    }
  }
}

}  // namespace
}  // namespace nerolith::sound
