// Files that cannot be played say why, and names may hold any bytes.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <random>

#include "linux_sound/midi_file.h"
#include "linux_sound/sound_files.h"
#include "linux_sound/wave_file.h"
#include "platform/failure.h"
#include "platform/linux/sound/open_source.h"

namespace nerolith::sound_tests {
namespace {

base::JobWatch goOn;

/// The sentence for the user, empty if the file could be opened.
std::string troubleWith(const std::string& path) {
  try {
    sound::openSource(path, goOn);
    return {};
  } catch (const platform::Failure& failure) {
    return failure.what();
  }
}

bool says(const std::string& sentence, const std::string& words) {
  return sentence.find(words) != std::string::npos;
}

TEST(BadFile, MissingOneIsNamed) {
  Scratch scratch;
  const std::string sentence = troubleWith(scratch / "gone.mp3");
  EXPECT_TRUE(says(sentence, "\"gone.mp3\"")) << sentence;
  EXPECT_TRUE(says(sentence, "no such file")) << sentence;
}

TEST(BadFile, EmptyOneIsCalledEmpty) {
  Scratch scratch;
  std::ofstream(scratch / "empty.mp3").close();
  EXPECT_TRUE(says(troubleWith(scratch / "empty.mp3"), "empty"));
}

TEST(BadFile, FolderIsCalledAFolder) {
  Scratch scratch;
  EXPECT_TRUE(says(troubleWith(scratch.path().string()), "folder"));
}

TEST(BadFile, PipeIsNotWaitedFor) {
  Scratch scratch;
  ASSERT_EQ(::mkfifo((scratch / "pipe.mp3").c_str(), 0600), 0);
  EXPECT_TRUE(says(troubleWith(scratch / "pipe.mp3"), "regular file"));
}

TEST(BadFile, UnreadableOneIsCalledSo) {
  if (::geteuid() == 0) GTEST_SKIP() << "root may read everything";
  Scratch scratch;
  writeWave(scratch / "mine.wav", silence(1));
  ::chmod((scratch / "mine.wav").c_str(), 0);
  EXPECT_TRUE(says(troubleWith(scratch / "mine.wav"), "permission"));
}

TEST(BadFile, DanglingAndCircularLinksFail) {
  Scratch scratch;
  std::filesystem::create_symlink("nowhere.mp3", scratch / "dangling.mp3");
  std::filesystem::create_symlink("circle.mp3", scratch / "circle.mp3");
  EXPECT_TRUE(says(troubleWith(scratch / "dangling.mp3"), "no such file"));
  EXPECT_TRUE(says(troubleWith(scratch / "circle.mp3"), "circle"));
}

TEST(BadFile, WhatIsNoSoundFailsUnderAnyName) {
  Scratch scratch;
  std::mt19937 random(1);
  std::vector<std::uint8_t> noise(100000);
  for (auto& byte : noise) byte = static_cast<std::uint8_t>(random());
  for (const std::string ending :
       {"mp3", "wav", "wma", "mid", "mpg", "ogg", "aif", "mp2", "flac"}) {
    writeBytes(scratch / "zeros." + ending, std::vector<std::uint8_t>(50000));
    EXPECT_NE(troubleWith(scratch / "zeros." + ending), "") << ending;
    std::ofstream(scratch / "text." + ending) << std::string(20000, 'a') << "no music\n";
    EXPECT_NE(troubleWith(scratch / "text." + ending), "") << ending;
    writeBytes(scratch / "noise." + ending, noise);
    EXPECT_NE(troubleWith(scratch / "noise." + ending), "") << ending;
  }
}

TEST(BadFile, PictureAndSilentFilmHoldNoSound) {
  if (!haveTool("ffmpeg")) GTEST_SKIP() << "ffmpeg is missing";
  Scratch scratch;
  const std::string make = "ffmpeg -nostdin -v error -y -f lavfi -i testsrc=s=64x64:d=1 ";
  ASSERT_TRUE(runTool(make + "-frames:v 1 " + scratch / "picture.png"));
  ASSERT_TRUE(runTool(make + scratch / "film.mpg"));
  EXPECT_NE(troubleWith(scratch / "picture.png"), "");
  EXPECT_TRUE(says(troubleWith(scratch / "film.mpg"), "no sound"));
}

TEST(BadFile, PlaylistLeadsNeitherToTheNetworkNorToOtherFiles) {
  Scratch scratch;
  writeWave(scratch / "other.wav", silence(1));
  std::ofstream(scratch / "stream.m3u8") << "#EXTM3U\n#EXT-X-TARGETDURATION:2\n#EXTINF:2,\n"
                                         << scratch / "other.wav"
                                         << "\n";
  std::ofstream(scratch / "list.ffconcat") << "ffconcat version 1.0\nfile other.wav\n";
  EXPECT_NE(troubleWith(scratch / "stream.m3u8"), "");
  EXPECT_NE(troubleWith(scratch / "list.ffconcat"), "");
}

TEST(BadFile, EveryKindCutShortFailsOrPlaysToItsEnd) {
  if (!haveTool("ffmpeg") || !haveTool("lame")) GTEST_SKIP() << "ffmpeg or lame is missing";
  Scratch scratch;
  for (const SoundKind& kind : soundKinds()) {
    const std::string path = makeSound(scratch, kind, 1);
    ASSERT_NE(path, "") << kind;
    const auto size = std::filesystem::file_size(path);
    for (const auto length : {size - 1, size / 2, size / 5, std::uintmax_t{200}, std::uintmax_t{40},
                              std::uintmax_t{4}, std::uintmax_t{1}}) {
      if (length >= size) continue;
      std::filesystem::resize_file(path, length);
      std::unique_ptr<sound::AudioSource> source;
      try {
        source = sound::openSource(path, goOn);
      } catch (const platform::Failure&) {
        continue;
      }
      EXPECT_GT(source->totalFrames(), 0) << kind << " cut to " << length;
      std::vector<Frame> piece(4096);
      std::size_t all = 0;
      while (const std::size_t got = source->read(piece)) all += got;
      EXPECT_LT(all, 5U * 44100U);
      source->seek(source->totalFrames() / 2);
      while (source->read(piece) > 0) {
      }
    }
    EXPECT_NE(troubleWith(path), "") << kind << " of one byte";
  }
}

TEST(OddName, IsOpenedByteForByte) {
  Scratch scratch;
  for (const std::string name :
       {"with space.wav", "-leading.wav", "new\nline.wav", "quote\"'.wav", "colon:.wav",
        "http:x.wav", "pipe:0", "100%d.wav", "?*[].wav", "bytes\xFF\xFE.wav",
        "\xC3\xA4\xE2\x82\xAC.wav", "#1.wav", "back\\slash.wav"}) {
    writeWave(scratch / name, silence(0.5));
    EXPECT_EQ(troubleWith(scratch / name), "") << name;
  }
  const std::string longest = std::string(251, 'n') + ".wav";
  writeWave(scratch / longest, silence(0.5));
  EXPECT_EQ(troubleWith(scratch / longest), "");
}

TEST(OddName, IsShownAsReadableText) {
  Scratch scratch;
  EXPECT_TRUE(says(troubleWith(scratch / "bad\xFF\nname.mp3"), "\"bad??name.mp3\""));
  EXPECT_TRUE(says(troubleWith(scratch / "\xC3\xA4.mp3"), "\"\xC3\xA4.mp3\""));
}

}  // namespace
}  // namespace nerolith::sound_tests
