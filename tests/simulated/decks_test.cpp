#include <gtest/gtest.h>

#include <memory>

#include "platform/failure.h"
#include "platform/simulated/simulated_machine.h"

namespace nerolith::platform::simulated {
namespace {

using namespace std::chrono_literals;

struct OneSong {
  OneSong() {
    machine.files.addFile("C:\\a.mp3", {.duration = 12});
    deck->renderFile("C:\\a.mp3");
  }
  SimulatedMachine machine;
  std::unique_ptr<FilterGraph> deck = machine.decks.createFilterGraph();
};

TEST(SimulatedGraph, PositionFollowsTheClockWhileItRuns) {
  OneSong s;
  s.machine.advance(5s);
  EXPECT_EQ(s.deck->currentPosition(), 0);
  s.deck->run();
  s.machine.advance(2500ms);
  EXPECT_EQ(s.deck->currentPosition(), 2.5);
  s.deck->run();  // running already
  s.machine.advance(500ms);
  EXPECT_EQ(s.deck->currentPosition(), 3);
}

TEST(SimulatedGraph, PauseAndStopFreezeThePosition) {
  OneSong s;
  s.deck->run();
  s.machine.advance(2s);
  s.deck->pause();
  s.machine.advance(5s);
  EXPECT_EQ(s.deck->currentPosition(), 2);
  s.deck->run();
  s.machine.advance(1s);
  s.deck->stop();
  s.machine.advance(5s);
  EXPECT_EQ(s.deck->currentPosition(), 3);
}

TEST(SimulatedGraph, StaysAtItsDurationAtTheEnd) {
  OneSong s;
  s.deck->run();
  s.machine.advance(1h);
  EXPECT_EQ(s.deck->currentPosition(), 12);
  EXPECT_EQ(s.machine.decks.audibleGraphs(), 0);
  s.deck->run();
  s.machine.advance(1s);
  EXPECT_EQ(s.deck->currentPosition(), 12);
  s.deck->setCurrentPosition(4);
  s.machine.advance(1s);
  EXPECT_EQ(s.deck->currentPosition(), 5);
}

TEST(SimulatedGraph, SeeksWithinTheFileOnly) {
  OneSong s;
  s.deck->setCurrentPosition(7.5);
  EXPECT_EQ(s.deck->currentPosition(), 7.5);
  EXPECT_THROW(s.deck->setCurrentPosition(12.1), Failure);
  EXPECT_THROW(s.deck->setCurrentPosition(-0.1), Failure);
  EXPECT_THROW(s.deck->setCurrentPosition(0.0 / 0.0), Failure);
  EXPECT_EQ(s.deck->currentPosition(), 7.5);
}

TEST(SimulatedGraph, VolumeCanBeReadBackAndHasItsLimits) {
  OneSong s;
  EXPECT_EQ(s.deck->volume(), 0);
  s.deck->setVolume(-10000);
  EXPECT_EQ(s.deck->volume(), -10000);
  EXPECT_THROW(s.deck->setVolume(-10001), Failure);
  EXPECT_THROW(s.deck->setVolume(1), Failure);
  EXPECT_EQ(s.deck->volume(), -10000);
}

TEST(SimulatedGraph, WithoutAFileOnlyPositionAndStopWork) {
  SimulatedMachine machine;
  const auto deck = machine.decks.createFilterGraph();
  EXPECT_EQ(deck->currentPosition(), 0);
  EXPECT_NO_THROW(deck->stop());
  EXPECT_THROW(deck->run(), Failure);
  EXPECT_THROW(deck->pause(), Failure);
  EXPECT_THROW((void)deck->duration(), Failure);
  EXPECT_THROW(deck->setCurrentPosition(0), Failure);
  EXPECT_THROW((void)deck->volume(), Failure);
  EXPECT_THROW(deck->setVolume(0), Failure);
}

TEST(SimulatedGraph, StaysEmptyWhenTheFileIsMissingOrNoSound) {
  SimulatedMachine machine;
  machine.files.addFile("C:\\broken.mp3", {.playable = false});
  const auto deck = machine.decks.createFilterGraph();
  EXPECT_THROW(deck->renderFile("C:\\missing.mp3"), Failure);
  EXPECT_THROW(deck->renderFile("C:\\broken.mp3"), Failure);
  EXPECT_THROW((void)deck->duration(), Failure);
  EXPECT_EQ(machine.trace({Door::Decks}),
            "decks.create | A.render missing.mp3 failed | A.render broken.mp3 failed");
}

TEST(SimulatedGraph, AFileThatCannotBeRunIsRendered) {
  SimulatedMachine machine;
  machine.files.addFile("C:\\locked.mp3", {.duration = 5, .runnable = false});
  const auto deck = machine.decks.createFilterGraph();
  deck->renderFile("C:\\locked.mp3");
  EXPECT_EQ(deck->duration(), 5);
  EXPECT_THROW(deck->run(), Failure);
}

TEST(SimulatedGraph, HoldsOneFileForItsLife) {
  OneSong s;
  EXPECT_THROW(s.deck->renderFile("C:\\a.mp3"), Failure);
}

}  // namespace
}  // namespace nerolith::platform::simulated
