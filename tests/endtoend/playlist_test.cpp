// Playlist files in the real program: by the command line, the keys and the system's own dialogs.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "endtoend/stage.h"

namespace nerolith::endtoend {
namespace {

namespace fs = std::filesystem;

constexpr const char* kAddTitle = "Add selected files to playlist (*.m3u)";

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
  bool choose(const std::string& title, const fs::path& path) const {
    return stage.player->chooseFile(title, path.string());
  }
  void picture(const std::string& name) const {
    stage.desktop.screenshot(fs::path(NEROLITH_SCREENSHOT_DIR) / name);
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
  ASSERT_TRUE(choose("Import playlistfile (*.m3u)", list));
  stage.player->key("Home");
  stage.player->key("space");
  EXPECT_TRUE(plays(1));
  stage.player->key("alt+q");
  ASSERT_TRUE(becomes(list, song(1) + "\r\n" + song(1) + "\r\n"));
  stage.player->key("alt+c");
  ASSERT_TRUE(choose("Clear playlistfile", list));
  EXPECT_TRUE(becomes(list, ""));
  EXPECT_EQ(stage.close(), 0);
}

// The songs go behind the first line, then one line out again; "Next M3U" writes the same songs
// into a new file, for which the editor does not stay.
TEST_F(Playlist, IsEditedInItsWindowWhileTheMainWindowIsAway) {
  put(list, song(2) + "\r\n");
  const fs::path further = list.parent_path() / "new.m3u";
  stage.open({.mode = 1});
  stage.player->key("Home");
  stage.player->key("shift+Down");
  stage.player->key("alt+a");
  ASSERT_TRUE(choose(kAddTitle, list));
  ASSERT_TRUE(stage.player->waitForTitle(list.string(), 5));
  EXPECT_FALSE(stage.player->showsMainWindow());
  ASSERT_TRUE(stage.player->waitForFocus(list.string(), 5));
  for (const char* name : {"Home", "Return", "Down", "Down", "Return"}) stage.player->key(name);
  ASSERT_TRUE(becomes(list, song(2) + "\r\n" + song(0) + "\r\n" + song(1) + "\r\n"));
  picture("editor.png");
  stage.player->key("Delete");
  ASSERT_TRUE(becomes(list, song(2) + "\r\n" + song(1) + "\r\n"));
  stage.player->key("Tab");
  stage.player->key("Return");
  ASSERT_TRUE(choose(kAddTitle, further));
  EXPECT_TRUE(becomes(further, song(0) + "\r\n" + song(1) + "\r\n"));
  EXPECT_FALSE(stage.player->showsTitle(further.string()));
  EXPECT_EQ(stage.close(), 0);
}

TEST_F(Playlist, WithoutOneUpdateSaysSo) {
  stage.open({.mode = 1});
  stage.player->key("alt+u");
  ASSERT_TRUE(stage.player->waitForMessage(5));
  picture("no playlist.png");
  stage.player->key("Return");
  EXPECT_TRUE(stage.player->waitForMessageGone(5));
  EXPECT_EQ(stage.close(), 0);
}

}  // namespace
}  // namespace nerolith::endtoend
