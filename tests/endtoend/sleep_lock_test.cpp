#include <gtest/gtest.h>

#include <csignal>
#include <functional>

#include "endtoend/section_window.h"
#include "endtoend/stage.h"
#include "endtoend/wait_until.h"

namespace nerolith::endtoend {
namespace {

/// A desktop whose system has a logind that writes down who keeps it from sleeping.
class SleepLock : public ::testing::Test {
 protected:
  SleepLock() {
    stage.desktop.startMessageBuses();
    Command command = stage.desktop.command(
        {"/usr/bin/python3", NEROLITH_SOURCE_DIR "/tests/endtoend/logind.py"});
    command.log = stage.desktop.scratch() / "logind";
    logind = std::make_unique<ChildProcess>(command);
    stage.prepare({"a.wav"}, 20);
  }

  bool says(const std::string& text) const {
    for (int tries = 0; tries < 100; ++tries, pauseFor(0.05))
      if (contentsOf(stage.desktop.scratch() / "logind") == text) return true;
    return false;
  }
  void open() {
    ASSERT_TRUE(says("ready\n"));
    stage.open({.mode = 1}, {stage.songs[0].file.string()});
  }

  Stage stage;
  std::unique_ptr<ChildProcess> logind;
  static constexpr const char* kHeld = "ready\nhold sleep:idle block Nerolith: Playing music\n";
};

TEST_F(SleepLock, IsHeldWhileASongPlaysAndNotInAPause) {
  open();
  EXPECT_TRUE(says(kHeld)) << contentsOf(stage.desktop.scratch() / "logind");
  stage.player->key("alt+p");
  const std::string released = std::string(kHeld) + "released\n";
  EXPECT_TRUE(says(released)) << contentsOf(stage.desktop.scratch() / "logind");
  stage.player->key("alt+r");
  EXPECT_TRUE(says(released + "hold sleep:idle block Nerolith: Playing music\n"));
}

TEST_F(SleepLock, EndsWithAPlayerThatIsKilled) {
  open();
  ASSERT_TRUE(says(kHeld)) << contentsOf(stage.desktop.scratch() / "logind");
  stage.player->program().kill();
  EXPECT_TRUE(says(std::string(kHeld) + "released\n"));
}

// A list without songs: the recording runs, and nothing plays.
TEST_F(SleepLock, IsHeldByARecordingInWhichNothingPlaysUntilItsStop) {
  std::filesystem::remove(stage.songs[0].file);
  ASSERT_TRUE(says("ready\n"));
  stage.open({.mode = 1, .fadeLength = 1});
  const SectionWindow section(stage.desktop, *stage.player);
  const std::filesystem::path file = stage.desktop.scratch() / "take.wav";
  section.chooseFile(file);
  EXPECT_TRUE(says("ready\n")) << "held before there is a reason";
  section.start();
  const std::string held = "ready\nhold sleep:idle block Nerolith: Recording\n";
  EXPECT_TRUE(says(held)) << contentsOf(stage.desktop.scratch() / "logind");
  EXPECT_TRUE(waitUntil(15, [&] {
    std::error_code missing;
    const auto size = std::filesystem::file_size(file, missing);
    return !missing && size > 44;
  })) << "nothing is recorded";
  EXPECT_TRUE(says(held)) << contentsOf(stage.desktop.scratch() / "logind");
  section.fadeOutAndStop();
  EXPECT_TRUE(waitForFinishedFile(file, 10));
  EXPECT_TRUE(says(held + "released\n")) << contentsOf(stage.desktop.scratch() / "logind");
}

}  // namespace
}  // namespace nerolith::endtoend
