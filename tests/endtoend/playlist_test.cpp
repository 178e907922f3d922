// Playlist files in the real program: by the command line, the keys and the system's own dialogs.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "endtoend/stage.h"

namespace nerolith::endtoend {
namespace {

namespace fs = std::filesystem;

class Playlist : public ::testing::Test {
 protected:
  Playlist() {
    stage.prepare({"a.wav", "b.wav", "c.wav"}, 20);
    list = stage.desktop.music() / "best.m3u";
  }

  void put(const fs::path& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary) << bytes;
  }
  std::string bytesOf(const fs::path& file) const {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  bool becomes(const fs::path& file, const std::string& bytes) const {
    for (int i = 0; i < 100 && bytesOf(file) != bytes; ++i) pauseFor(0.05);
    EXPECT_EQ(bytesOf(file), bytes);
    return bytesOf(file) == bytes;
  }
  std::string song(std::size_t i) const { return stage.songs[i].file.string(); }
  bool plays(std::size_t i) const { return stage.recording->waitForTone(stage.songs[i].hertz, 5); }
  void type(const std::string& text) {
    for (const char c : text) {
      if (c == '/')
        stage.player->key("slash");
      else if (c == '.')
        stage.player->key("period");
      else if (c == '-')
        stage.player->key("minus");
      else if (c == '_')
        stage.player->key("underscore");
      else
        stage.player->key(std::string(1, c));
    }
  }
  void answerDialog(const std::string& title, const fs::path& path) {
    ASSERT_TRUE(stage.player->waitForTitle(title, 5)) << title;
    pauseFor(0.3);
    type(path.string());
    stage.desktop.screenshot(fs::path(NEROLITH_SCREENSHOT_DIR) /
                             (title.substr(0, title.find(' ')) + " dialog.png"));
    stage.player->key("Return");
    pauseFor(0.7);
  }

  Stage stage;
  fs::path list;
};

TEST_F(Playlist, OfTheCommandLineIsHeardAndUpdatedAndComesBack) {
  put(list, "\xEF\xBB\xBF#EXTM3U\n#EXTINF:20,Third\n" + song(2) + "\n\n  " + song(0) + "  ");
  stage.open({.mode = 1}, {list.string() + ",2"});
  EXPECT_TRUE(plays(2));
  stage.player->key("End");
  stage.player->key("alt+u");
  ASSERT_TRUE(becomes(list, song(2) + "\r\n" + song(0) + "\r\n"));
  stage.player->key("Delete");
  stage.player->key("alt+u");
  ASSERT_TRUE(becomes(list, song(2) + "\r\n"));
  EXPECT_EQ(stage.close(), 0);
  EXPECT_EQ(storedText(stage.desktop, "Velmarion/Path", "plname"), list.string());
}

TEST_F(Playlist, IsImportedAddedToAndClearedThroughTheDialogs) {
  put(list, song(1) + "\r\n");
  stage.open({.mode = 1});
  stage.player->key("alt+i");
  answerDialog("Import playlistfile (*.m3u)", list);
  stage.player->key("Home");
  stage.player->key("space");
  EXPECT_TRUE(plays(1));
  stage.player->key("alt+q");
  ASSERT_TRUE(becomes(list, song(1) + "\r\n" + song(1) + "\r\n"));
  stage.player->key("alt+c");
  answerDialog("Clear playlistfile", list);
  EXPECT_TRUE(becomes(list, ""));
  EXPECT_EQ(stage.close(), 0);
}

TEST_F(Playlist, WithoutOneUpdateSaysSo) {
  stage.open({.mode = 1});
  stage.player->key("alt+u");
  ASSERT_TRUE(stage.player->waitForTitle("Nerolith", 5));
  pauseFor(0.5);
  stage.desktop.screenshot(fs::path(NEROLITH_SCREENSHOT_DIR) / "no playlist.png");
  stage.player->key("Return");
  EXPECT_EQ(stage.close(), 0);
}

}  // namespace
}  // namespace nerolith::endtoend
