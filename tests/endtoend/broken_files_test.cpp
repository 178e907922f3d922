#include <gtest/gtest.h>

#include <fstream>

#include "endtoend/stage.h"

namespace nerolith::endtoend {
namespace {

// Broken songs, and behind them one that plays.
void openBrokenFolder(Stage& stage, int broken) {
  for (int i = 10; i < 10 + broken; ++i)
    std::ofstream(stage.desktop.music() / (std::to_string(i) + ".mp3")) << "no song\n";
  stage.prepare({"99 whole.wav"}, 3);
  stage.open({.mode = 2, .mixLead = 1, .fadeLength = 0.5});
}

TEST(BrokenFiles, OneMessageForAFolderOfThemAndThePlayerStaysUsable) {
  Stage stage;
  openBrokenFolder(stage, 30);
  const auto twoWindows = [&] { return stage.player->countTitles(".") > 1; };
  for (int i = 0; i < 100 && !twoWindows(); ++i) pauseFor(0.05);
  ASSERT_TRUE(twoWindows()) << "no message";
  pauseFor(0.5);
  stage.desktop.screenshot(std::filesystem::path(NEROLITH_SCREENSHOT_DIR) / "message.png");
  EXPECT_EQ(stage.player->countTitles("."), 2);

  stage.player->key("Return");
  pauseFor(1.5);
  EXPECT_EQ(stage.player->countTitles("."), 1) << "the message is shown again";
  EXPECT_TRUE(stage.player->running());

  stage.player->key("End");
  stage.player->key("space");
  EXPECT_TRUE(stage.recording->waitForTone(stage.songs[0].hertz, 10))
      << "nothing can be played afterwards";
  EXPECT_EQ(stage.close(), 0);
}

TEST(BrokenFiles, TwentyFourInARowAreSkippedWithoutAWord) {
  Stage stage;
  openBrokenFolder(stage, 24);
  EXPECT_TRUE(stage.recording->waitForTone(stage.songs[0].hertz, 20));
  EXPECT_EQ(stage.player->countTitles("."), 1);
}

}  // namespace
}  // namespace nerolith::endtoend
