// Files that another program's window lets the user drag onto the player's.
#include <gtest/gtest.h>

#include <fstream>

#include "endtoend/stage.h"

namespace nerolith::endtoend {
namespace {

namespace fs = std::filesystem;

class DroppedFiles : public ::testing::Test {
 protected:
  DroppedFiles() { stage.prepare({"a.wav", "b.wav"}, 20); }

  /// Drags from the other window into the song list.
  void drag() const {
    const Place player = stage.player->place();
    std::vector<std::string> words = {"xdotool", "mousemove", "30", "30", "mousedown", "1"};
    const auto moveTo = [&words](int x, int y) {
      words.insert(words.end(),
                   {"mousemove", std::to_string(x), std::to_string(y), "sleep", "0.1"});
    };
    moveTo(45, 45);
    for (const int part : {1, 2, 3, 4})
      moveTo(player.x + player.width / 2, player.y + player.height * (4 + part) / 12);
    words.insert(words.end(), {"sleep", "0.3", "mouseup", "1"});
    runToEnd(stage.desktop.command(words));
  }
  /// Whether the list's first song, once the file was dropped, is this one.
  bool bringsUp(const fs::path& dropped, const Song& song) const {
    ChildProcess source(stage.desktop.command({NEROLITH_DRAG_SOURCE, dropped.string()}));
    if (!stage.player->waitForTitle("drag source", 10)) return false;
    for (int round = 0; round < 3; ++round) {
      drag();
      stage.player->key("Home");
      stage.player->key("space");
      if (stage.recording->waitForTone(song.hertz, 3)) return true;
    }
    return false;
  }

  Stage stage;
};

TEST_F(DroppedFiles, APlaylistIsImported) {
  const fs::path list = stage.desktop.music() / "\u00e9vening.m3u";
  std::ofstream(list) << stage.songs[1].file.string() << "\n";
  stage.open({.mode = 1});
  EXPECT_TRUE(bringsUp(list, stage.songs[1]));
  EXPECT_EQ(stage.close(), 0);
  EXPECT_EQ(storedText(stage.desktop, "Velmarion/Path", "plname"), list.string());
  EXPECT_TRUE(fs::exists(list)) << "taken as moved";
}

TEST_F(DroppedFiles, AFolderIsOpened) {
  const fs::path folder = stage.desktop.music() / "Winter";
  fs::create_directory(folder);
  fs::rename(stage.songs[1].file, folder / "b.wav");
  stage.open({.mode = 1});
  EXPECT_TRUE(bringsUp(folder, stage.songs[1]));
  EXPECT_EQ(stage.close(), 0);
  EXPECT_EQ(storedText(stage.desktop, "Velmarion/Path", "path"), folder.string());
}

}  // namespace
}  // namespace nerolith::endtoend
