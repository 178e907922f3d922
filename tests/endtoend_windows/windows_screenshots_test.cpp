// A picture of each window of the Windows program. Which windows come up is checked here; whether
// they look right is for the eye.
#include <gtest/gtest.h>

#include <fstream>

#include "endtoend/section_window.h"
#include "endtoend/shipped_program.h"
#include "endtoend/stage.h"
#include "endtoend/window_places.h"

namespace nerolith::endtoend {
namespace {

const std::filesystem::path kPictures = NEROLITH_SCREENSHOT_DIR;

struct WindowsScreenshots : testing::Test {
  Stage stage;

  void take(const char* name) { stage.desktop.screenshot(kPictures / name); }
  void keys(const std::vector<std::string>& names) {
    for (const std::string& name : names) {
      stage.player->key(name);
      pauseFor(0.2);
    }
  }
  bool gone(const std::string& title) {
    for (int i = 0; i < 100 && stage.player->showsTitle(title); ++i) pauseFor(0.1);
    return !stage.player->showsTitle(title);
  }
  bool comes(const std::string& title) {
    const bool shown = stage.player->waitForTitle(title, 10);
    pauseFor(0.5);
    return shown;
  }
  void open() {
    stage.prepare({"Amber Lanes - Harbour Lights.wav", "Amber Lanes - Low Tide.wav",
                   "Brass Meridian - Evening Post.wav", "Cora Whitfield - Paper Boats.wav",
                   "Cora Whitfield - Second Summer.wav", "Delta Parade - Northbound.wav",
                   "Delta Parade - Southbound.wav", "Elias Marlow - Glass Stairs.wav",
                   "Elias Marlow - The Long Way Round.wav", "Ferrous - Magnet.wav",
                   "Granite Choir - Cathedral.wav", "Halcyon Drive - Overpass.wav"},
                  40);
    for (const char* name : {"Albums", "Concerts", "Radio"})
      std::filesystem::create_directory(stage.desktop.music() / name);
    stage.open({.mode = 2, .mixLead = 6, .fadeLength = 4, .loop = true});
  }
  void takeMainWindow() {
    pauseFor(2);
    take("main.png");
    keys({"alt+o", "Down"});
    take("menu.png");
    keys({"Right"});
    take("submenu.png");
    keys({"Escape", "Escape"});
    stage.player->click(places::kDriveX / 2, places::kDriveY);  // on its words
    pauseFor(0.5);
    take("folders.png");
    keys({"Return"});
  }
  void takeEditor() {
    const auto list = stage.desktop.music() / "Sunday evening.m3u";
    std::ofstream out(list);
    for (const std::size_t song : {4, 1, 7, 2}) out << toldAs(stage.songs[song].file) << "\r\n";
    out.close();
    ASSERT_TRUE(stage.player->waitForFocus("Nerolith", 10));
    keys({"alt+a"});
    ASSERT_TRUE(stage.player->chooseFile("Add selected files to playlist", toldAs(list)));
    ASSERT_TRUE(comes("Sunday evening.m3u"));
    keys({"Home", "Down", "Return"});
    take("editor.png");
  }
};

TEST_F(WindowsScreenshots, OfEachWindowAndOfTheMenu) {
  open();
  ASSERT_TRUE(stage.recording->waitForTone(stage.songs[0].hertz, 10));
  takeMainWindow();
  keys({"alt+o", "Up", "Return"});
  ASSERT_TRUE(comes("Settings"));
  take("settings.png");
  keys({"Escape"});
  EXPECT_TRUE(gone("^Settings$"));

  {
    const SectionWindow section(stage.desktop, *stage.player);
    take("recording.png");
    section.exit();
  }
  EXPECT_TRUE(gone("recording section"));
  takeEditor();
}

}  // namespace
}  // namespace nerolith::endtoend
