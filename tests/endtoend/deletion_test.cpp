// Songs that are weeded out of the list with their files: what is on the disk before the close,
// after it, and after a program that was killed.
#include <gtest/gtest.h>

#include "endtoend/stage.h"

namespace nerolith::endtoend {
namespace {

namespace fs = std::filesystem;

class Deletion : public ::testing::Test {
 protected:
  Deletion() {
    stage.prepare({"a.wav", "b.wav", "c.wav", "d.wav"}, 20);
    fs::permissions(file(1), fs::perms::owner_read);
    stage.open({.mode = 1, .markDeletions = true});
  }

  const fs::path& file(std::size_t i) const { return stage.songs[i].file; }
  std::string left() const {
    std::string names;
    for (const Song& song : stage.songs)
      if (fs::exists(song.file)) names += song.file.filename().string()[0];
    return names;
  }
  /// The first song plays, and goes with the second one, which is read-only.
  void removeTheFirstTwo() {
    stage.player->key("Home");
    stage.player->key("space");
    EXPECT_TRUE(stage.recording->waitForTone(stage.songs[0].hertz, 5));
    stage.player->key("shift+Down");
    stage.player->key("Delete");
    ASSERT_TRUE(stage.player->waitForMessage(5)) << "nobody asks";
    stage.desktop.screenshot(fs::path(NEROLITH_SCREENSHOT_DIR) / "deletion.png");
    stage.player->key("alt+y");
    ASSERT_TRUE(stage.player->waitForMessageGone(5));
  }

  Stage stage;
};

TEST_F(Deletion, TakesTheMarkedFilesAtTheCloseNotBeforeAndNoOthers) {
  removeTheFirstTwo();
  EXPECT_EQ(left(), "abcd");
  EXPECT_EQ(stage.close(), 0);
  EXPECT_EQ(left(), "cd");
}

TEST_F(Deletion, TakesNothingWhenTheProgramIsKilled) {
  removeTheFirstTwo();
  stage.player->program().kill();
  ASSERT_TRUE(stage.player->waitForEnd(5));
  EXPECT_EQ(left(), "abcd");
}

TEST_F(Deletion, TakesNothingAfterANo) {
  stage.player->key("Home");
  stage.player->key("Delete");
  ASSERT_TRUE(stage.player->waitForMessage(5));
  stage.player->key("Return");
  ASSERT_TRUE(stage.player->waitForMessageGone(5));
  EXPECT_EQ(stage.close(), 0);
  EXPECT_EQ(left(), "abcd");
}

}  // namespace
}  // namespace nerolith::endtoend
