#include <gtest/gtest.h>

#include <cmath>
#include <csignal>

#include "endtoend/picture.h"
#include "endtoend/stage.h"
#include "endtoend/window_places.h"

namespace nerolith::endtoend {
namespace {

// The line under the song's name, where the player says what is wrong.
Picture notice(const Stage& stage) {
  const Place window = stage.player->place();
  return grab(stage.desktop, {window.x + places::kNoticeX, window.y + places::kNoticeY,
                              places::kNoticeWidth, places::kNoticeHeight});
}

constexpr double kNothingWritten = 1.5;  // contrast of the glass with itself
constexpr double kLegible = 4.5;

Outcome serverDies() {
  Stage stage;
  const Song song = stage.prepareClimb("climb.wav", 15);
  stage.open({.mode = 1}, {song.file.string() + ",1"});
  pauseFor(3);
  Complaints complaints;
  if (contrastRatio(notice(stage)) > kNothingWritten) complaints.push_back("trouble without cause");
  stage.desktop.killSoundServer();
  const Sound before = stage.recording->sound();
  stage.recording.reset();
  pauseFor(1.5);
  stage.desktop.screenshot(std::filesystem::path(NEROLITH_SCREENSHOT_DIR) / "sound-trouble.png");
  if (!stage.player->running()) return {{"the player is gone: " + stage.player->output()}, {}, {}};

  const double contrast = contrastRatio(notice(stage));
  if (contrast < kLegible) complaints.push_back("the player does not say what is wrong");
  // Held until the new recording runs, so that nothing of what it plays is missed.
  stage.player->program().signal(SIGSTOP);
  stage.desktop.startSoundServer();
  stage.recording = std::make_unique<Recording>(stage.desktop, "second");
  stage.player->program().signal(SIGCONT);
  pauseFor(3);
  const Sound after = stage.recording->sound();
  const auto silences = silencesIn(after, 0, after.length());
  if (silences.empty() || silences.back().to > after.length() - 0.3)
    return stage.outcome({"it does not play on: " + describe(silences)});
  const double left = positionBefore(before, before.length());
  const double resumed = positionAfter(after, silences.back().to);
  const std::string figures = figure("left at", left, "s") + figure(", plays on at", resumed, "s");
  if (std::abs(resumed - left) > 0.25) complaints.push_back(figures);
  if (contrastRatio(notice(stage)) > kNothingWritten)
    complaints.push_back("the trouble is still told when it is over");
  return stage.outcome(complaints, {figures, figure("contrast of the notice", contrast, "to 1")});
}

TEST(SoundServer, WhenItComesBackTheSongGoesOnWhereItWas) { measure(serverDies); }

TEST(SoundServer, ThePlayerStartsWithoutOneAndPlaysOnceItIsThere) {
  Stage stage(PrivateDesktop::SoundServer::Missing);
  stage.prepare({"song.wav"}, 30);
  writeSettings(stage.desktop, {.mode = 2, .folder = stage.desktop.music()});
  stage.player = std::make_unique<PlayerWindow>(stage.desktop);
  ASSERT_TRUE(stage.player->waitForWindow()) << stage.player->output();
  pauseFor(1);
  stage.desktop.screenshot(std::filesystem::path(NEROLITH_SCREENSHOT_DIR) / "no-sound-server.png");
  EXPECT_TRUE(stage.player->running());
  stage.desktop.startSoundServer();
  stage.recording = std::make_unique<Recording>(stage.desktop);
  EXPECT_TRUE(stage.recording->waitForTone(stage.songs[0].hertz, 5));
  EXPECT_EQ(stage.close(), 0);
}

}  // namespace
}  // namespace nerolith::endtoend
