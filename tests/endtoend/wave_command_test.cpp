// Recordings repaired and copied by the program itself, from the shell.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "endtoend/child_process.h"
#include "recording/wave_model.h"

namespace nerolith::endtoend {
namespace {

namespace model = recording::model;
namespace fs = std::filesystem;

class WaveCommand : public ::testing::Test {
 protected:
  WaveCommand() {
    std::string name = (fs::temp_directory_path() / "nerolith-waves-XXXXXX").string();
    if (!mkdtemp(name.data())) throw std::runtime_error("no scratch folder");
    folder = name;
  }
  ~WaveCommand() override { fs::remove_all(folder); }

  void put(const std::string& name, const std::string& bytes) {
    std::ofstream(folder / name, std::ios::binary) << bytes;
  }
  std::string contents(const std::string& name) {
    std::ifstream in(folder / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  /// The exit code; what it said is in `said`. It has no screen, and wants none.
  int run(std::vector<std::string> words) {
    words.insert(words.begin(), NEROLITH_PROGRAM);
    Command command{.words = words, .folder = folder, .log = folder / "log"};
    command.environment.erase("DISPLAY");
    const int result = runToEnd(command);
    said = contents("log");
    fs::remove(folder / "log");
    return result;
  }

  fs::path folder;
  std::string said;
};

TEST_F(WaveCommand, RepairsARecordingThatWasCutOff) {
  put("take.wav", model::header(0, 0) + model::halves(3));
  EXPECT_EQ(run({"--repair", "take.wav"}), 0);
  EXPECT_EQ(said, "take.wav: repaired, 6.0 s of sound\n");
  EXPECT_TRUE(contents("take.wav") ==
              model::header(3 * 352800 + 44, 3 * 352800) + model::halves(3));
  EXPECT_EQ(run({"--repair", "take.wav"}), 0);
  EXPECT_EQ(said, "take.wav: needs no repair, 6.0 s of sound\n");
}

TEST_F(WaveCommand, CopiesARecordingAsTheStandardHasIt) {
  put("my take.wav", model::finished(2, 2 * 352800 + 4000));
  EXPECT_EQ(run({"--standard", "my take.wav", "out.wav"}), 0);
  EXPECT_EQ(said, "out.wav: 4.0 s of sound\n");
  EXPECT_TRUE(contents("out.wav") == model::header(709600 + 36, 709600) + model::sound(0, 709600));
  EXPECT_TRUE(contents("my take.wav") == model::finished(2, 2 * 352800 + 4000));
}

TEST_F(WaveCommand, NeverWritesOverItsOwnRecordingWhateverItIsCalled) {
  const std::string recording = model::finished(1, 352800 + 4000);
  put("take.wav", recording);
  fs::create_symlink("take.wav", folder / "soft.wav");
  fs::create_hard_link(folder / "take.wav", folder / "hard.wav");
  for (const char* name : {"take.wav", "./take.wav", "soft.wav", "hard.wav"}) {
    EXPECT_EQ(run({"--standard", "take.wav", name}), 1) << name;
    EXPECT_NE(said.find("is the recording itself"), std::string::npos) << said;
  }
  EXPECT_TRUE(contents("take.wav") == recording);
}

TEST_F(WaveCommand, LeavesWhatIsNoRecordingAlone) {
  put("song.mp3", "ID3 and more");
  EXPECT_EQ(run({"--repair", "song.mp3"}), 1);
  EXPECT_EQ(said, "song.mp3: is no recording of this player\n");
  EXPECT_EQ(contents("song.mp3"), "ID3 and more");
  EXPECT_EQ(run({"--repair", "missing.wav"}), 1);
  EXPECT_EQ(said, "missing.wav: No such file or directory\n");
  EXPECT_EQ(run({"--standard", "song.mp3", "out.wav"}), 1);
  EXPECT_FALSE(fs::exists(folder / "out.wav"));
}

TEST_F(WaveCommand, RefusesSizesThatAWavFileCannotHold) {
  put("huge.wav", model::header(0, 0));
  fs::resize_file(folder / "huge.wav", std::uintmax_t{5} << 30);  // a hole: takes no space
  EXPECT_EQ(run({"--repair", "huge.wav"}), 1);
  EXPECT_EQ(said, "huge.wav: is too large for a WAV file\n");
  EXPECT_EQ(run({"--standard", "huge.wav", "out.wav"}), 1);
  EXPECT_FALSE(fs::exists(folder / "out.wav"));
}

TEST_F(WaveCommand, RepairsMoreThanTwoGigabytes) {
  put("long.wav", model::header(0, 0));
  fs::resize_file(folder / "long.wav", 44 + std::uintmax_t{8000} * 352802);
  EXPECT_EQ(run({"--repair", "long.wav"}), 0);
  EXPECT_EQ(said, "long.wav: repaired, 266 min 40.0 s of sound\n");
  std::ifstream in(folder / "long.wav", std::ios::binary);
  std::string header(44, '\0');
  in.read(header.data(), 44);
  EXPECT_TRUE(header == model::header(8000u * 352800u + 44, 8000u * 352800u));
}

TEST_F(WaveCommand, SaysHowItIsCalled) {
  EXPECT_EQ(run({"--repair"}), 2);
  EXPECT_EQ(said, "Usage: velmarion --repair FILE.wav\n");
  EXPECT_EQ(run({"--standard", "take.wav"}), 2);
  EXPECT_EQ(said, "Usage: velmarion --standard FILE.wav OUT.wav\n");
}

}  // namespace
}  // namespace nerolith::endtoend
