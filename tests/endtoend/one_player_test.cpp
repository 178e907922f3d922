#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "endtoend/stage.h"

namespace nerolith::endtoend {
namespace {

/// A player that was started first, at rest, with the music folder shown.
class OnePlayer : public ::testing::Test {
 protected:
  OnePlayer() { stage.prepare({"a.wav", "b.wav"}, 20); }

  /// Starts the program again, in this folder; its exit code.
  std::optional<int> startAgain(std::vector<std::string> arguments,
                                const std::filesystem::path& folder = {}) {
    Command command = startOf(stage.desktop, std::move(arguments));
    if (!folder.empty()) command.folder = folder;
    command.log = stage.desktop.scratch() / "second.log";
    ChildProcess second(command);
    return second.wait(std::chrono::seconds(10));
  }
  bool hears(std::size_t song) const {
    return stage.recording->waitForTone(stage.songs[song].hertz, 5);
  }

  Stage stage;
};

TEST_F(OnePlayer, ALaterStartHandsOverItsFileAndBringsTheWindowForward) {
  stage.open({.mode = 1}, {"1"});
  runToEnd(stage.desktop.command({"xdotool", "search", "--name", "^Nerolith$", "windowminimize"}));
  EXPECT_EQ(startAgain({"b.wav"}, stage.desktop.music()), 0);
  EXPECT_TRUE(hears(1));
  EXPECT_TRUE(stage.player->waitForTitle("Nerolith", 5));
  EXPECT_EQ(stage.player->countTitles("^Nerolith$"), 1);
  EXPECT_EQ(startAgain({stage.songs[0].file.string() + ",2"}), 0);
  EXPECT_TRUE(hears(0));
}

TEST_F(OnePlayer, AFolderWithACommaInItsNameIsOpenedFromWhereTheStartWas) {
  const auto folder = stage.desktop.music() / "rise, and fall";
  std::filesystem::create_directory(folder);
  std::filesystem::rename(stage.songs[1].file, folder / "d, e.wav");
  stage.open({.mode = 1}, {"1"});
  EXPECT_EQ(startAgain({"rise, and fall/d, e.wav"}, stage.desktop.music()), 0);
  EXPECT_TRUE(hears(1));
}

TEST_F(OnePlayer, QuestionsAreAnsweredByWhoIsAsked) {
  stage.open({.mode = 1}, {"1"});
  EXPECT_EQ(startAgain({"--version"}), 0);
  EXPECT_NE(contentsOf(stage.desktop.scratch() / "second.log").find("Nerolith"), std::string::npos);
  Command command = startOf(stage.desktop, {"?"});
  ChildProcess second(command);
  // The window, the message, and the window behind the message.
  EXPECT_TRUE(stage.player->waitForTitle("Nerolith", 5));
  for (int tries = 0; tries < 100 && stage.player->countTitles("Nerolith") < 3; ++tries)
    pauseFor(0.05);
  EXPECT_EQ(stage.player->countTitles("Nerolith"), 3);
  EXPECT_TRUE(second.running());
}

TEST_F(OnePlayer, AfterACrashTheNextStartIsThePlayer) {
  stage.open({.mode = 1}, {"1"});
  stage.player->program().kill();
  stage.open({.mode = 1}, {stage.songs[0].file.string()});
  EXPECT_TRUE(hears(0));
}

TEST_F(OnePlayer, TheToolkitsOptionsAreNoFileNames) {
  stage.open({.mode = 1}, {"-style", "windows", stage.songs[1].file.string()});
  EXPECT_TRUE(hears(1));
}

}  // namespace
}  // namespace nerolith::endtoend
