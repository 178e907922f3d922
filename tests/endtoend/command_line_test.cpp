#include <gtest/gtest.h>

#include <fstream>

#include "endtoend/stage.h"

namespace nerolith::endtoend {
namespace {

constexpr const char* kModes = "Microsoft Visual Basic AddIns/Setting";

// Two songs in the folder of the last run, Auto next stored: what a command line changes shows.
class CommandLine : public ::testing::Test {
 protected:
  CommandLine() {
    stage.prepare({"a.wav", "b.wav"}, 20);
    stage.recording = std::make_unique<Recording>(stage.desktop);
  }

  void start(std::vector<std::string> arguments, const std::filesystem::path& folder = {}) {
    StoredSettings settings{.mode = 2};
    settings.folder = stage.desktop.music();
    writeSettings(stage.desktop, settings);
    stage.player = std::make_unique<PlayerWindow>(stage.desktop, std::move(arguments), folder);
  }
  bool plays(std::size_t song) const {
    return stage.recording->waitForTone(stage.songs[song].hertz, 4);
  }
  bool staysSilent() const {
    pauseFor(1);
    return stage.recording->waitForSilence(0.8, 0.1);
  }
  // The mode of play as it is stored when the player is closed.
  std::string modeAtTheEnd() {
    EXPECT_EQ(stage.close(), 0);
    return storedText(stage.desktop, kModes, "setting");
  }

  Stage stage;
};

TEST_F(CommandLine, AQuestionMarkShowsTheUsageAndEnds) {
  start({"?"});
  ASSERT_TRUE(stage.player->waitForTitle("Nerolith", 5));
  pauseFor(0.5);
  EXPECT_TRUE(staysSilent());
  stage.desktop.screenshot(std::filesystem::path(NEROLITH_SCREENSHOT_DIR) / "usage.png");
  stage.player->key("Return");
  EXPECT_EQ(stage.player->waitForEnd(5), 0);
}

TEST_F(CommandLine, ANumberIsTheModeAndStartsTheFolderOfTheLastRun) {
  start({"2"});
  ASSERT_TRUE(stage.player->waitForWindow());
  EXPECT_TRUE(plays(0));
  EXPECT_EQ(modeAtTheEnd(), "2");
}

TEST_F(CommandLine, ACommaAndANumberIsTheModeToo) {
  start({",3"});
  ASSERT_TRUE(stage.player->waitForWindow());
  EXPECT_FALSE(staysSilent());
  EXPECT_EQ(modeAtTheEnd(), "3");
}

TEST_F(CommandLine, FourIsNoModeButAFileThatIsNotThere) {
  start({"4"});
  ASSERT_TRUE(stage.player->waitForWindow());
  EXPECT_TRUE(staysSilent());
  EXPECT_EQ(modeAtTheEnd(), "1");
}

TEST_F(CommandLine, AFileAndAModePlaysThatFile) {
  start({stage.songs[1].file.string() + ",3"});
  ASSERT_TRUE(stage.player->waitForWindow());
  EXPECT_TRUE(plays(1));
  EXPECT_EQ(modeAtTheEnd(), "3");
}

TEST_F(CommandLine, AMissingFileLeavesASilentPlayer) {
  start({"/nowhere/song.mp3"});
  ASSERT_TRUE(stage.player->waitForWindow());
  EXPECT_TRUE(staysSilent());
  EXPECT_EQ(stage.player->countTitles("."), 1);
  EXPECT_EQ(modeAtTheEnd(), "1");
}

TEST_F(CommandLine, AFolderAndAModePlaysTheFolder) {
  start({stage.desktop.music().string() + "/,2"});
  ASSERT_TRUE(stage.player->waitForWindow());
  EXPECT_TRUE(plays(0));
  EXPECT_EQ(modeAtTheEnd(), "2");
}

TEST_F(CommandLine, ARelativePathCountsFromWhereThePlayerWasStarted) {
  start({"music/b.wav"}, stage.desktop.scratch());
  ASSERT_TRUE(stage.player->waitForWindow());
  EXPECT_TRUE(plays(1));
  EXPECT_EQ(modeAtTheEnd(), "1");
}

TEST_F(CommandLine, HelpIsPrinted) {
  start({"--help"});
  EXPECT_EQ(stage.player->waitForEnd(5), 0);
  EXPECT_NE(stage.player->output().find("Usage: velmarion"), std::string::npos)
      << stage.player->output();
}

TEST_F(CommandLine, TheVersionIsPrinted) {
  start({"--version"});
  EXPECT_EQ(stage.player->waitForEnd(5), 0);
  EXPECT_NE(stage.player->output().find("0."), std::string::npos) << stage.player->output();
}

TEST_F(CommandLine, GarbageInTheSettingsIsNoReasonToStayAway) {
  start({"2"});
  stage.player.reset();
  std::ofstream(stage.desktop.settingsFile()) << "\x01garbage[[[\nfadem==9e99\n";
  stage.player = std::make_unique<PlayerWindow>(stage.desktop);
  EXPECT_TRUE(stage.player->waitForTitle("Nerolith", 5)) << stage.player->output();
  pauseFor(1);
  stage.desktop.screenshot(std::filesystem::path(NEROLITH_SCREENSHOT_DIR) / "settings-garbage.png");
  EXPECT_TRUE(stage.player->running()) << stage.player->output();
}

}  // namespace
}  // namespace nerolith::endtoend
