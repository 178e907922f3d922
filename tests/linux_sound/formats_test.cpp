// Every kind of file: its length, and where a seek lands.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <limits>

#include "linux_sound/midi_file.h"
#include "linux_sound/sound_files.h"
#include "linux_sound/wave_file.h"
#include "platform/linux/sound/open_source.h"
#include "platform/linux/sound/packet_scan.h"

namespace nerolith::sound_tests {
namespace {

base::JobWatch goOn;

std::vector<Frame> readAll(sound::AudioSource& source) {
  std::vector<Frame> all;
  std::vector<Frame> piece(4096);
  while (const std::size_t got = source.read(piece)) {
    all.insert(all.end(), piece.begin(), piece.begin() + static_cast<std::ptrdiff_t>(got));
  }
  return all;
}

double difference(std::span<const Frame> a, std::span<const Frame> b) {
  double sum = 0;
  for (std::size_t i = 0; i < a.size(); ++i) sum += std::abs(a[i].left - b[i].left);
  return sum / static_cast<double>(a.size());
}

/// How many frames `piece` lies from `place` in `whole`, by the best likeness within `reach`.
std::int64_t shiftOf(std::span<const Frame> piece, std::span<const Frame> whole, std::int64_t place,
                     std::int64_t reach) {
  std::int64_t best = 0;
  double least = std::numeric_limits<double>::max();
  for (std::int64_t shift = -reach; shift <= reach; ++shift) {
    const std::int64_t at = place + shift;
    if (at < 0 || at + static_cast<std::int64_t>(piece.size()) > std::ssize(whole)) continue;
    const double off = difference(piece, whole.subspan(static_cast<std::size_t>(at), piece.size()));
    if (off < least) {
      least = off;
      best = shift;
    }
  }
  return best;
}

class Formats : public testing::TestWithParam<SoundKind> {
 protected:
  void SetUp() override {
    if (!haveTool("ffmpeg") || !haveTool("lame")) GTEST_SKIP() << "ffmpeg or lame is missing";
  }
  std::unique_ptr<sound::AudioSource> open(double seconds) {
    const std::string path = makeSound(scratch, GetParam(), seconds);
    EXPECT_NE(path, "") << "the file could not be made";
    return sound::openSource(path, goOn);
  }
  Scratch scratch;
};

TEST_P(Formats, LengthIsKnownToATenthOfASecond) {
  const auto source = open(9.7);
  const double told = static_cast<double>(source->totalFrames()) / sound::kSampleRate;
  const double played = static_cast<double>(readAll(*source).size()) / sound::kSampleRate;
  EXPECT_NEAR(told, 9.7, 0.1);
  EXPECT_NEAR(told, played, 0.1);
}

TEST_P(Formats, SeekLandsWhereItShould) {
  const auto source = open(9.7);
  const std::vector<Frame> whole = readAll(*source);
  std::vector<Frame> piece(3000);
  const auto slack = static_cast<std::int64_t>(GetParam().seekSlack * sound::kSampleRate);
  for (const std::int64_t target : {200000L, 44100L, 330001L, 0L, 12345L, 300L, 400000L}) {
    source->seek(target);
    ASSERT_EQ(source->read(piece), piece.size()) << "at " << target;
    const std::int64_t shift = shiftOf(piece, whole, target, std::max<std::int64_t>(slack, 1200));
    EXPECT_LE(std::abs(shift), slack) << "at " << target;
    if (shift != 0) std::cout << "    " << GetParam() << " off by " << shift << " frames\n";
  }
}

TEST_P(Formats, SoundIsTheOriginalAndNotShiftedAgainstIt) {
  const auto source = open(3);
  const std::vector<Frame> whole = readAll(*source);
  std::vector<Frame> original = chirp(3);
  const auto piece = std::span(whole).subspan(60000, 3000);
  const bool mono = piece[1000].left == piece[1000].right;
  for (Frame& frame : original) {
    if (mono) frame.left = (frame.left + frame.right) / 2;
  }
  const std::int64_t shift = shiftOf(piece, original, 60000, 2600);
  // A bare mp3 or mp2 carries its encoder's delay with nobody to tell of it: up to 50 ms.
  EXPECT_LE(std::abs(shift), 0.055 * sound::kSampleRate);
  const auto place = static_cast<std::size_t>(60000 + shift);
  // Wrong sound differs by 0.25 and more; a mono file of 8 kHz by a part of its own long samples.
  EXPECT_LT(difference(piece, std::span(original).subspan(place, 3000)), 0.06);
  if (shift != 0) std::cout << "    " << GetParam() << " shifted by " << shift << " frames\n";
}

std::string testName(const testing::TestParamInfo<SoundKind>& info) {
  std::string name = info.param.name;
  std::replace_if(
      name.begin(), name.end(), [](unsigned char c) { return !std::isalnum(c); }, '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(Kinds, Formats, testing::ValuesIn(soundKinds()), testName);

TEST(Mp3, GaplessSongBeginsAndEndsWithItsFirstAndLastSample) {
  if (!haveTool("lame")) GTEST_SKIP() << "lame is missing";
  Scratch scratch;
  const auto source = sound::openSource(makeSound(scratch, soundKinds()[0], 4), goOn);
  const std::vector<Frame> whole = readAll(*source);
  EXPECT_EQ(whole.size(), 4U * 44100U);
  const std::vector<Frame> original = chirp(4);
  EXPECT_EQ(shiftOf(std::span(whole).subspan(80000, 4000), original, 80000, 2000), 0);
}

TEST(Mp3, BrokenOffDownloadIsAsLongAsWhatIsThere) {
  if (!haveTool("lame")) GTEST_SKIP() << "lame is missing";
  Scratch scratch;
  const std::string path = makeSound(scratch, soundKinds()[0], 8);
  std::filesystem::resize_file(path, std::filesystem::file_size(path) / 2);
  const auto source = sound::openSource(path, goOn);
  EXPECT_NEAR(static_cast<double>(source->totalFrames()) / sound::kSampleRate, 4, 0.1);
}

TEST(Mp3, ForeignBytesInTheMiddleAreSteppedOver) {
  if (!haveTool("lame")) GTEST_SKIP() << "lame is missing";
  Scratch scratch;
  const std::string path = makeSound(scratch, soundKinds()[3], 8);
  std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
  file.seekp(static_cast<std::streamoff>(std::filesystem::file_size(path) / 2));
  file << std::string(3000, '\xFF');
  file.close();
  const auto source = sound::openSource(path, goOn);
  EXPECT_NEAR(static_cast<double>(source->totalFrames()) / sound::kSampleRate, 8, 0.3);
  EXPECT_NEAR(static_cast<double>(readAll(*source).size()) / sound::kSampleRate, 8, 0.3);
}

TEST(Midi, PlaysItsNotesForTheirLength) {
  Scratch scratch;
  writeBytes(scratch / "song.mid", midiSong(8));
  const auto source = sound::openSource(scratch / "song.mid", goOn);
  EXPECT_EQ(source->totalFrames(), 4 * 44100);
  const std::vector<Frame> whole = readAll(*source);
  EXPECT_EQ(whole.size(), 4U * 44100U);
  float loudest = 0;
  for (const Frame& frame : whole) loudest = std::max(loudest, std::abs(frame.left));
  EXPECT_GT(loudest, 0.02F);
  EXPECT_LT(std::abs(whole.back().left), 0.001F) << "ends without a click";
}

TEST(Midi, SeekBeginsInTheMiddleOfTheSong) {
  Scratch scratch;
  writeBytes(scratch / "song.mid", midiSong(8));
  const auto source = sound::openSource(scratch / "song.mid", goOn);
  source->seek(3 * 44100 + 1000);
  EXPECT_EQ(readAll(*source).size(), 44100U - 1000U);
  source->seek(0);
  EXPECT_EQ(readAll(*source).size(), 4U * 44100U);
}

}  // namespace
}  // namespace nerolith::sound_tests
