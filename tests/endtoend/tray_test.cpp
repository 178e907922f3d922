// The icon of the real program in real trays: seen, clicked, and what becomes of the hidden window.
#include "endtoend/tray.h"

#include <gtest/gtest.h>

#include "endtoend/stage.h"
#include "endtoend/wait_until.h"
#include "endtoend/window_places.h"

namespace nerolith::endtoend {
namespace {

const std::filesystem::path kPictures = NEROLITH_SCREENSHOT_DIR;
const std::filesystem::path kNoMenu = kPictures / "no tray menu.png";
constexpr int kLeft = 1, kRight = 3;
enum Entry { PlayNext = 1, Maximize = 2, Exit = 3 };

class TrayTest : public testing::Test {
 protected:
  void bringUp(Tray::Kind kind) {
    if (kind == Tray::Kind::Items) stage.desktop.startMessageBuses();
    tray = std::make_unique<Tray>(stage.desktop, kind);
  }
  void open(int mode = 1) {
    stage.prepare({"a.wav", "b.wav"}, 40);
    stage.open({.mode = mode});
  }
  void choose(int button, Entry entry) {
    const int windows = stage.player->windowsOnScreen();
    tray->click(button);
    for (int i = 0; stage.player->windowsOnScreen() <= windows; ++i) {
      if (i == 100) stage.desktop.screenshot(kNoMenu);
      ASSERT_LT(i, 100) << "no menu comes up, see " << kNoMenu;
      pauseFor(0.05);
    }
    stage.desktop.screenshot(kPictures / "tray menu.png");
    pauseFor(0.4);  // until the menu has the keyboard
    for (int i = 0; i < entry; ++i) stage.player->key("Down");
    stage.player->key("Return");
  }
  void pressHide() { stage.player->click(places::kHideX, places::kCloseY); }
  bool windowShown() const {
    return waitUntil(10, [&] { return stage.player->showsMainWindow(); });
  }
  bool windowGone() const {
    return waitUntil(10, [&] { return !stage.player->showsMainWindow(); });
  }
  bool minimised() const {
    const std::string state = outputOf(
        stage.desktop.command({"xprop", "-name", "Nerolith", "WM_STATE"}), stage.desktop.scratch());
    return state.find("Iconic") != std::string::npos;
  }
  /// While the window is hidden; the next tray of that kind has the icon again.
  void trayGoesAndComesAgain(Tray::Kind kind) {
    bringUp(kind);
    open();
    ASSERT_TRUE(tray->waitForIcon(15));
    pressHide();
    ASSERT_TRUE(windowGone());
    tray->kill();
    EXPECT_TRUE(windowShown());
    tray = std::make_unique<Tray>(stage.desktop, kind);
    EXPECT_TRUE(tray->waitForIcon(15)) << registeredItems(stage.desktop);
  }
  bool plays(std::size_t song) const {
    return stage.recording->waitForTone(stage.songs[song].hertz, 10);
  }

  Stage stage;
  std::unique_ptr<Tray> tray;
};

TEST_F(TrayTest, AnItemPlaysTheNextSongBringsTheHiddenWindowBackAndEndsThePlayer) {
  bringUp(Tray::Kind::Items);
  open(2);
  ASSERT_TRUE(tray->waitForIcon(15)) << registeredItems(stage.desktop);
  ASSERT_TRUE(plays(0));
  const Place before = stage.player->place();
  pressHide();
  ASSERT_TRUE(windowGone());
  choose(kLeft, PlayNext);  // popped up by the player
  EXPECT_TRUE(plays(1));
  EXPECT_TRUE(windowGone());
  choose(kRight, Maximize);  // shown by the tray
  EXPECT_TRUE(windowShown());
  const Place after = stage.player->place();
  EXPECT_EQ(before.x, after.x);
  EXPECT_EQ(before.y, after.y);
  pressHide();
  ASSERT_TRUE(windowGone());
  choose(kRight, Exit);
  EXPECT_EQ(stage.player->waitForEnd(10), 0);
  EXPECT_FALSE(storedText(stage.desktop, "Velmarion/Path", "path").empty());
}

TEST_F(TrayTest, AnEmbeddedIconDoesTheSame) {
  bringUp(Tray::Kind::Embedding);
  open(2);
  ASSERT_TRUE(tray->waitForIcon(15));
  ASSERT_TRUE(plays(0));
  pressHide();
  ASSERT_TRUE(windowGone());
  choose(kLeft, PlayNext);
  EXPECT_TRUE(plays(1));
  choose(kRight, Maximize);
  EXPECT_TRUE(windowShown());
  choose(kRight, Exit);
  EXPECT_EQ(stage.player->waitForEnd(10), 0);
}

TEST_F(TrayTest, AHiddenWindowComesBackWhenTheItemsHostGoesAndTheIconWithTheNext) {
  trayGoesAndComesAgain(Tray::Kind::Items);
  pressHide();
  ASSERT_TRUE(windowGone());
  choose(kLeft, Maximize);
  EXPECT_TRUE(windowShown());
}

TEST_F(TrayTest, AHiddenWindowComesBackWhenTheEmbeddingTrayGoesAndTheIconWithTheNext) {
  trayGoesAndComesAgain(Tray::Kind::Embedding);
}

TEST_F(TrayTest, WithoutATrayTheHideKeyMinimisesAndATrayThatComesLaterGetsTheIcon) {
  stage.desktop.startMessageBuses();
  open();
  pressHide();
  ASSERT_TRUE(windowGone());
  EXPECT_TRUE(minimised());
  tray = std::make_unique<Tray>(stage.desktop, Tray::Kind::Items);
  EXPECT_TRUE(tray->waitForIcon(15)) << registeredItems(stage.desktop);
  choose(kLeft, Maximize);
  EXPECT_TRUE(windowShown());
  EXPECT_FALSE(minimised());
}

}  // namespace
}  // namespace nerolith::endtoend
