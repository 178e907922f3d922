// A file's length without a deck is the deck's, whatever the file.
#include "platform/linux/sound/song_measurer.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>

#include "linux_sound/midi_file.h"
#include "linux_sound/offline_engine.h"
#include "linux_sound/sound_files.h"
#include "platform/failure.h"

namespace nerolith::sound_tests {
namespace {

using namespace std::chrono_literals;

constexpr double kUnplayable = -1;

double measured(sound::SongMeasurer& measurer, const std::string& path) {
  base::JobWatch watch;
  try {
    return measurer.durationOf(path, watch);
  } catch (const platform::Failure&) {
    return kUnplayable;
  }
}

std::string contents(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void write(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

/// An ID3v2 tag with a picture's worth of bytes, in some of which an mp3 frame seems to begin.
std::string largeTag() {
  constexpr std::size_t kBody = 300000;
  std::string tag = "ID3\x04";
  tag += std::string(2, '\0');
  for (const int shift : {21, 14, 7, 0}) tag += static_cast<char>(kBody >> shift & 0x7F);
  tag += std::string(kBody, '\x5A');
  for (std::size_t at = 1000; at < kBody; at += 5000) tag.replace(at, 4, "\xFF\xFB\x90\x64");
  return tag;
}

/// An APEv2 tag with one item and a footer, as it stands behind a song.
std::string apeTag() {
  const std::string item = std::string("\x05\0\0\0\0\0\0\0Title\0Hello", 19);
  std::string footer = "APETAGEX";
  for (const std::size_t number : {std::size_t{2000}, item.size() + 32, std::size_t{1}}) {
    for (int i = 0; i < 4; ++i) footer += static_cast<char>(number >> 8 * i & 0xFF);
  }
  return item + footer + std::string(12, '\0');
}

struct Measuring : testing::Test {
  OfflineEngine machine;
  sound::SongMeasurer measurer;

  void SetUp() override {
    if (!haveTool("ffmpeg") || !haveTool("lame")) GTEST_SKIP() << "ffmpeg or lame is missing";
  }
  double told(const std::string& path) {
    try {
      return machine.rendered(path)->duration();
    } catch (const platform::Failure&) {
      return kUnplayable;
    }
  }
  std::string path(const std::string& name) { return machine.scratch / name; }
  /// Both ways give the very same number, or neither gives one.
  void expectTheSame(const std::string& path, const std::string& what) {
    EXPECT_EQ(measured(measurer, path), told(path)) << what;
  }
  void expectTheSameWithTags(const std::string& name, const std::string& whole) {
    write(path(name), largeTag() + whole);
    expectTheSame(path(name), name + " behind a large tag");
    write(path(name), largeTag() + largeTag() + whole + apeTag());
    expectTheSame(path(name), name + " between three tags");
    write(path(name), whole + apeTag() + "TAG" + std::string(125, ' '));
    expectTheSame(path(name), name + " before two tags");
  }
  void expectTheSameCutShort(const std::string& name, const std::string& whole) {
    for (const std::size_t length : {whole.size() - 1, whole.size() * 9 / 10, whole.size() / 2,
                                     whole.size() / 7, std::size_t{500}, std::size_t{5}}) {
      write(path(name), whole.substr(0, length));
      expectTheSame(path(name), name + " of " + std::to_string(length));
    }
  }
  void expectTheSameBehindForeignBytes(const std::string& name, const std::string& whole) {
    for (const std::string& front : {std::string(1, 'x'), std::string(3000, '\x42'),
                                     std::string(700, '\xFF'), std::string(90000, '\0')}) {
      write(path(name), front + whole);
      expectTheSame(path(name), name + " behind " + std::to_string(front.size()));
    }
  }
  void makeOld(const std::string& path) {
    std::filesystem::last_write_time(path, std::filesystem::file_time_type::clock::now() - 1h);
  }
};

TEST_F(Measuring, EveryKindIsAsLongAsADeckTells) {
  for (const SoundKind& kind : soundKinds()) {
    const std::string song = makeSound(machine.scratch, kind, 7.3);
    ASSERT_NE(song, "") << kind;
    EXPECT_NEAR(measured(measurer, song), 7.3, 0.1) << kind;
    expectTheSame(song, kind.name);
  }
}

TEST_F(Measuring, FilesTaggedCutShortOrBehindForeignBytesAreAsLongAsADeckTells) {
  for (const SoundKind& kind : soundKinds()) {
    const std::string whole = contents(makeSound(machine.scratch, kind, 2));
    ASSERT_NE(whole, "") << kind;
    expectTheSameWithTags(kind.name, whole);
    expectTheSameCutShort(kind.name, whole);
    expectTheSameBehindForeignBytes(kind.name, whole);
  }
}

TEST_F(Measuring, OtherNamesAndWhatIsNoSoundAreTakenAsADeckTakesThem) {
  const std::string mp3 = contents(makeSound(machine.scratch, soundKinds()[0], 2));
  const std::string wave = contents(makeSound(machine.scratch, soundKinds()[11], 2));
  for (const char* name : {"song", "song.bin", "song.mp3", "song.wav", "song.mid", "song.ogg"}) {
    write(path(name), mp3);
    expectTheSame(path(name), std::string("mp3 as ") + name);
    write(path(name), wave);
    expectTheSame(path(name), std::string("wave as ") + name);
    write(path(name), std::string(40000, 'a'));
    EXPECT_EQ(measured(measurer, path(name)), kUnplayable) << "text as " << name;
    write(path(name), "");
    EXPECT_EQ(measured(measurer, path(name)), kUnplayable) << "nothing as " << name;
  }
  EXPECT_EQ(measured(measurer, path("missing.mp3")), kUnplayable);
  EXPECT_EQ(measured(measurer, machine.scratch.path().string()), kUnplayable);
}

TEST_F(Measuring, MidiIsAsLongAsADeckTellsTheFirstTimeAndLater) {
  for (const int notes : {8, 8, 3, 40}) {
    writeBytes(path("song.mid"), midiSong(notes));
    EXPECT_EQ(measured(measurer, path("song.mid")), notes * 0.5);
    expectTheSame(path("song.mid"), "midi");
  }
  write(path("song.mid"), "MThd and no notes");
  EXPECT_EQ(measured(measurer, path("song.mid")), kUnplayable);
}

TEST_F(Measuring, AnUnchangedFileIsNotOpenedAgain) {
  const std::string song = machine.file("song.wav", silence(3));
  makeOld(song);
  int opened = 0;
  sound::SongMeasurer counting([&](const std::string& path, base::JobWatch& watch) {
    ++opened;
    return sound::openSource(path, watch);
  });
  EXPECT_EQ(measured(counting, song), 3);
  EXPECT_EQ(measured(counting, song), 3);
  EXPECT_EQ(opened, 1);
}

TEST_F(Measuring, AChangedFileIsMeasuredAgain) {
  const std::string song = machine.file("song.wav", silence(3));
  makeOld(song);
  EXPECT_EQ(measured(measurer, song), 3);
  machine.file("song.wav", silence(4));
  EXPECT_EQ(measured(measurer, song), 4);
  // As many bytes, twice as long: only its time, or that it is another file, tells.
  makeOld(song);
  EXPECT_EQ(measured(measurer, song), 4);
  machine.file("song.wav", silence(4), 22050);
  EXPECT_EQ(measured(measurer, song), 8);
  std::filesystem::remove(song);
  EXPECT_EQ(measured(measurer, song), kUnplayable);
}

TEST_F(Measuring, AFileThatWasWrittenJustNowIsNotTrustedToStayAsItIs) {
  const std::string song = machine.file("song.wav", silence(4), 44100);
  const auto written = std::filesystem::last_write_time(song);
  EXPECT_EQ(measured(measurer, song), 4);
  machine.file("song.wav", silence(4), 22050);  // as many bytes, twice as long
  std::filesystem::last_write_time(song, written);
  EXPECT_EQ(measured(measurer, song), told(song));
  EXPECT_NE(told(song), 4);
}

}  // namespace
}  // namespace nerolith::sound_tests
