// The whole program worked by the keys of the keyboard alone.
#include <gtest/gtest.h>

#include <fstream>

#include "endtoend/stage.h"
#include "endtoend/wait_until.h"

namespace nerolith::endtoend {
namespace {

namespace fs = std::filesystem;

/// Two songs in a folder beneath the one that the player starts in, and a playlist with neither.
class Keyboard : public ::testing::Test {
 protected:
  Keyboard() {
    stage.prepare({"a.wav", "b.wav"}, 30);
    fs::create_directory(stage.desktop.music() / "Albums");
    for (Song& song : stage.songs) {
      const fs::path moved = stage.desktop.music() / "Albums" / song.file.filename();
      fs::rename(song.file, moved);
      song.file = moved;
    }
    std::ofstream(list) << "/nowhere/at all.mp3\r\n";
  }

  void keys(const std::vector<std::string>& names) const {
    for (const std::string& name : names) stage.player->key(name);
  }
  bool hears(std::size_t song) const {
    return stage.recording->waitForTone(stage.songs[song].hertz, 10);
  }
  bool mainWindowHasTheKeyboard(const std::string& after) const {
    return waitUntil(10, [&] { return !stage.player->showsTitle(after); }) &&
           stage.player->waitForFocus("Nerolith", 10) && stage.player->showsMainWindow();
  }

  Stage stage;
  const fs::path list = stage.desktop.music() / "best.m3u";
};

TEST_F(Keyboard, OpensAFolderPlaysItAndGoesThroughEveryWindowAndBack) {
  stage.open({.mode = 1, .mixLead = 8, .fadeLength = 5});
  // From the list back to the drive box, whose folders come up; in them the last one.
  keys({"shift+Tab", "shift+Tab", "Tab", "End", "Return", "Return", "Home", "space"});
  ASSERT_TRUE(hears(0)) << "the folder was not opened, or its song not started";
  keys({"Down", "space"});
  EXPECT_TRUE(hears(1));

  ASSERT_TRUE(stage.player->openFromMenu({"Up", "Return"}, "Settings"));
  keys({"ctrl+a", "3", "shift+Tab", "space"});  // from the mix length to Save Settings
  ASSERT_TRUE(mainWindowHasTheKeyboard("Settings"));
  EXPECT_EQ(storedText(stage.desktop, "Microsoft Visual Basic AddIns/Setting", "fadelen"), "3");

  ASSERT_TRUE(stage.player->openFromMenu({"Up", "Up", "Return"}, "recording section"));
  keys({"shift+Tab", "space"});  // Exit
  ASSERT_TRUE(mainWindowHasTheKeyboard("recording section"));

  stage.player->key("alt+a");
  ASSERT_TRUE(stage.player->chooseFile("Add selected files to playlist (*.m3u)", list.string()));
  ASSERT_TRUE(stage.player->waitForFocus(list.string(), 10));
  keys({"Home", "Delete"});
  EXPECT_TRUE(waitUntil(10, [&] { return contentsOf(list).empty(); })) << contentsOf(list);
  stage.player->key("alt+c");
  ASSERT_TRUE(mainWindowHasTheKeyboard(list.string()));

  keys({"alt+s", "Return", "Tab", "Tab", "space"});  // Stop; from the list on: Hide, Close
  EXPECT_EQ(stage.player->waitForEnd(10), 0);
}

}  // namespace
}  // namespace nerolith::endtoend
