// A picture of every state that the window can be in. What can be told from a picture by counting
// is checked; the rest is for the eye.
#include <gtest/gtest.h>

#include <chrono>

#include "endtoend/picture.h"
#include "endtoend/stage.h"
#include "endtoend/window_places.h"

namespace nerolith::endtoend {
namespace {

const std::filesystem::path kPictures = NEROLITH_SCREENSHOT_DIR;

std::vector<std::string> albumNames() {
  return {"Amber Lanes - Harbour Lights.wav",
          "Amber Lanes - Low Tide.wav",
          "Brass Meridian - Evening Post.wav",
          "Cora Whitfield - Paper Boats.wav",
          "Cora Whitfield - Second Summer.wav",
          "Delta Parade - Northbound.wav",
          "Delta Parade - Southbound.wav",
          "Elias Marlow - Glass Stairs.wav",
          "Elias Marlow - The Long Way Round.wav",
          "Ferrous - Magnet.wav",
          "Granite Choir - Cathedral.wav",
          "Halcyon Drive - Overpass.wav",
          "Ivory Static - Two AM.wav",
          "Juniper & Sons - Kettle Song.wav"};
}

TEST(Screenshots, EmptyList) {
  Stage stage;
  stage.open({.mode = 2});
  pauseFor(0.4);
  stage.desktop.screenshot(kPictures / "empty.png");
}

TEST(Screenshots, PlayingMixingAndPaused) {
  Stage stage;
  stage.prepare(albumNames(), 12);
  stage.open({.mode = 2, .mixLead = 6, .fadeLength = 4});
  stage.recording->waitForTone(stage.songs[0].hertz, 5);
  pauseFor(3);
  stage.desktop.screenshot(kPictures / "playing.png");
  stage.recording->waitForTone(stage.songs[1].hertz, 10);
  pauseFor(1.5);
  stage.desktop.screenshot(kPictures / "mixing.png");
  stage.player->key("alt+p");
  pauseFor(0.5);
  stage.desktop.screenshot(kPictures / "paused.png");
}

TEST(Screenshots, RandomWithPlayedAndRecentSongs) {
  Stage stage;
  stage.prepare(albumNames(), 12);
  const auto old = std::filesystem::file_time_type::clock::now() - std::chrono::hours(24 * 90);
  for (std::size_t i = 0; i < stage.songs.size(); ++i)
    if (i % 4 != 1) std::filesystem::last_write_time(stage.songs[i].file, old);
  stage.open({.mode = 3, .mixLead = 2, .fadeLength = 1, .loop = true, .recentRule = true});
  for (int i = 0; i < 5; ++i) {
    pauseFor(0.4);
    stage.player->key("alt+n");
  }
  pauseFor(2);
  stage.desktop.screenshot(kPictures / "random.png");
}

TEST(Screenshots, FolderList) {
  Stage stage;
  stage.prepare(albumNames(), 2);
  for (const char* name : {"Albums", "Concerts", "Radio"})
    std::filesystem::create_directory(stage.desktop.music() / name);
  stage.open({.mode = 1});
  stage.player->click(places::kDriveX, places::kDriveY);
  pauseFor(0.5);
  stage.desktop.screenshot(kPictures / "folders.png");
}

TEST(Screenshots, EveryTimeColourIsLegible) {
  Stage stage;
  stage.prepare(albumNames(), 60);
  stage.open({.mode = 2, .mixLead = 4, .fadeLength = 2, .colour = 0});
  stage.recording->waitForTone(stage.songs[0].hertz, 5);
  std::vector<std::string> montage = {"montage"};
  for (int colour = 0; colour < 16; ++colour) {
    pauseFor(0.15);
    const Place window = stage.player->place();
    const Place time = {window.x + places::kTimeX - 70, window.y + places::kTimeY - 20, 140, 40};
    const double contrast = contrastRatio(grab(stage.desktop, time));
    EXPECT_GE(contrast, 3.0) << "colour " << colour;
    RecordProperty("contrast_" + std::to_string(colour), std::to_string(contrast));
    const auto file = stage.desktop.scratch() / ("colour" + std::to_string(10 + colour) + ".png");
    stage.desktop.screenshot(file);
    montage.push_back(file.string() + "[760x170+" + std::to_string(window.x) + "+" +
                      std::to_string(window.y) + "]");
    stage.player->click(places::kTimeX, places::kTimeY, 3);
  }
  for (const char* word : {"-tile", "2x8", "-geometry", "+4+4"}) montage.push_back(word);
  montage.push_back((kPictures / "colours.png").string());
  EXPECT_EQ(runToEnd(stage.desktop.command(montage)), 0);
}

}  // namespace
}  // namespace nerolith::endtoend
