// MPEG audio headers as plain numbers, and the walk over a file of frames written by hand.
#include "platform/linux/sound/packet_scan.h"

#include <gtest/gtest.h>

#include <vector>

#include "linux_sound/scratch.h"
#include "linux_sound/sound_files.h"

namespace nerolith::sound {
namespace {

using Bytes = std::vector<std::uint8_t>;
base::JobWatch goOn;

/// An empty frame: MPEG 1 layer 3, 128 kbit/s, 44.1 kHz, stereo: 417 bytes.
Bytes frame() {
  Bytes bytes(417);
  bytes[0] = 0xFF;
  bytes[1] = 0xFB;
  bytes[2] = 0x90;
  return bytes;
}

Bytes frames(int count) {
  Bytes bytes;
  for (int i = 0; i < count; ++i) {
    const Bytes one = frame();
    bytes.insert(bytes.end(), one.begin(), one.end());
  }
  return bytes;
}

Bytes operator+(Bytes a, const Bytes& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

struct Written {
  sound_tests::Scratch scratch;
  std::unique_ptr<FileReader> file;
  explicit Written(const Bytes& bytes, const std::string& name = "song.mp3") {
    sound_tests::writeBytes(scratch / name, bytes);
    file = std::make_unique<FileReader>(scratch / name, goOn);
  }
};

TEST(MpegHeader, ReadsLengthAndSamplesOfEveryLayer) {
  const auto mp3 = parseMpegHeader(0xFFFB9000);
  ASSERT_TRUE(mp3);
  EXPECT_EQ(mp3->layer, 3);
  EXPECT_EQ(mp3->sampleRate, 44100);
  EXPECT_EQ(mp3->bytes, 417);
  EXPECT_EQ(mp3->samples, 1152);
  EXPECT_EQ(parseMpegHeader(0xFFFB9200)->bytes, 418) << "padded";
  EXPECT_EQ(parseMpegHeader(0xFFFDA400)->bytes, 576) << "layer 2, 192 kbit/s, 48 kHz";
  EXPECT_EQ(parseMpegHeader(0xFFF38000)->samples, 576) << "half the rate, half the samples";
  EXPECT_EQ(parseMpegHeader(0xFFF38000)->sampleRate, 22050);
  EXPECT_EQ(parseMpegHeader(0xFFFF9000)->samples, 384) << "layer 1";
  EXPECT_EQ(parseMpegHeader(0xFFFB90C0)->channels, 1);
}

TEST(MpegHeader, RefusesWhatCannotBeOne) {
  for (const std::uint32_t word : {0U, 0xFFFFFFFFU, 0xFFFB0000U, 0xFFFBF000U, 0xFFFB9C00U,
                                   0xFFF99000U, 0xFFEB9000U, 0x12345678U}) {
    EXPECT_FALSE(parseMpegHeader(word)) << std::hex << word;
  }
}

TEST(Id3Tag, TellsItsLengthInSevenBitBytes) {
  const Bytes tag{'I', 'D', '3', 4, 0, 0, 0, 0, 2, 1};
  EXPECT_EQ(id3TagBytes(tag), 10 + 257);
  EXPECT_EQ(id3TagBytes(Bytes{'T', 'A', 'G'}), 0);
}

TEST(MpegFrameIndex, CountsTheFramesBetweenTagsAtBothEnds) {
  const Bytes head = Bytes{'I', 'D', '3', 4, 0, 0, 0, 0, 1, 0} + Bytes(128, 0);
  const Bytes tail = Bytes{'T', 'A', 'G'} + Bytes(125, ' ');
  const Written song(head + frames(100) + tail);
  const auto found = findMpegSong(*song.file);
  ASSERT_TRUE(found);
  EXPECT_EQ(found->firstSound, 138);
  const MpegFrameIndex index = indexMpegFrames(*song.file, *found);
  EXPECT_EQ(index.frames, 100);
  EXPECT_EQ(index.offsets.size(), 7U);
  EXPECT_EQ(index.offsets[1], 138 + 16 * 417);
}

TEST(MpegFrameIndex, EachStepThroughTheFileIsProgress) {
  const Written song(frames(2000));
  const auto found = findMpegSong(*song.file);
  const std::uint64_t before = goOn.progress;
  indexMpegFrames(*song.file, *found);
  EXPECT_GE(goOn.progress - before, 2000U * 417U);
}

TEST(MpegFrameIndex, LeavesOutTheFrameThatTheFilesEndCuts) {
  Bytes bytes = frames(50);
  bytes.erase(bytes.end() - 100, bytes.end());
  const Written song(bytes);
  EXPECT_EQ(indexMpegFrames(*song.file, *findMpegSong(*song.file)).frames, 49);
}

TEST(MpegFrameIndex, FindsItsWayBehindForeignBytes) {
  const Written song(frames(20) + Bytes(5000, 0xFF) + frames(30));
  EXPECT_EQ(indexMpegFrames(*song.file, *findMpegSong(*song.file)).frames, 50);
}

TEST(MpegSong, BeginsBehindForeignBytesOnlyUnderItsOwnName) {
  const Bytes bytes = Bytes(3000, 0x42) + frames(20);
  EXPECT_TRUE(findMpegSong(*Written(bytes, "song.MP3").file));
  EXPECT_FALSE(findMpegSong(*Written(bytes, "song.bin").file));
}

TEST(MpegSong, TellsItsFramesWhereAnEncoderWroteThem) {
  Bytes first = frame();
  const char* name = "Info";
  std::copy(name, name + 4, first.begin() + 36);
  first[43] = 1;    // frames are told
  first[47] = 200;  // so many
  const Written song(first + frames(200));
  const auto found = findMpegSong(*song.file);
  ASSERT_TRUE(found && found->told);
  EXPECT_EQ(found->told->frames, 200);
  EXPECT_FALSE(found->told->gapless);
  EXPECT_EQ(found->firstSound, 417);
}

TEST(MpegSong, IsNotBelievedWhenTheFileIsShorterThanItTells) {
  Bytes first = frame();
  const char* name = "Xing";
  std::copy(name, name + 4, first.begin() + 36);
  first[43] = 3;  // frames and bytes are told
  first[47] = 200;
  first[50] = 0xFF;  // 65280 bytes: 156 frames
  const Written song(first + frames(60));
  const auto found = findMpegSong(*song.file);
  ASSERT_TRUE(found);
  EXPECT_FALSE(found->told);
  EXPECT_EQ(indexMpegFrames(*song.file, *found).frames, 60);
}

}  // namespace
}  // namespace nerolith::sound
