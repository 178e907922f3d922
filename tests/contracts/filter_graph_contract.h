// What every deck must do, whichever machine it plays on.
#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "contracts/filter_graph_rig.h"
#include "platform/failure.h"
#include "platform/filter_graph.h"

namespace nerolith::contracts {

template <class Rig>
class FilterGraphContract : public testing::Test {
 protected:
  using Graph = std::unique_ptr<platform::FilterGraph>;

  void SetUp() override {
    if (!rig.unavailable().empty()) GTEST_SKIP() << rig.unavailable();
  }
  Graph empty() { return rig.factory().createFilterGraph(); }
  Graph rendered(double seconds = 3) {
    Graph graph = empty();
    graph->renderFile(rig.soundFile(seconds));
    return graph;
  }

  Rig rig;
};

TYPED_TEST_SUITE_P(FilterGraphContract);

TYPED_TEST_P(FilterGraphContract, EmptyGraphIsAtZeroAndMayBeStopped) {
  const auto graph = this->empty();
  EXPECT_EQ(graph->currentPosition(), 0);
  EXPECT_NO_THROW(graph->stop());
}

TYPED_TEST_P(FilterGraphContract, EmptyGraphFailsEveryOtherCall) {
  const auto graph = this->empty();
  EXPECT_THROW(graph->run(), platform::Failure);
  EXPECT_THROW(graph->pause(), platform::Failure);
  EXPECT_THROW(static_cast<void>(graph->duration()), platform::Failure);
  EXPECT_THROW(graph->setCurrentPosition(0), platform::Failure);
  EXPECT_THROW(static_cast<void>(graph->volume()), platform::Failure);
  EXPECT_THROW(graph->setVolume(0), platform::Failure);
}

TYPED_TEST_P(FilterGraphContract, UnplayableFileFailsAndLeavesTheGraphEmpty) {
  const auto graph = this->empty();
  EXPECT_THROW(graph->renderFile(this->rig.missingFile()), platform::Failure);
  EXPECT_THROW(graph->renderFile(this->rig.brokenFile()), platform::Failure);
  EXPECT_THROW(graph->run(), platform::Failure);
  EXPECT_EQ(graph->currentPosition(), 0);
}

TYPED_TEST_P(FilterGraphContract, GraphThatFailedToRenderMayRenderAnotherFile) {
  const auto graph = this->empty();
  EXPECT_THROW(graph->renderFile(this->rig.missingFile()), platform::Failure);
  graph->renderFile(this->rig.soundFile(3));
  EXPECT_NEAR(graph->duration(), 3, 0.1);
}

TYPED_TEST_P(FilterGraphContract, DurationIsKnownOnceRendered) {
  EXPECT_NEAR(this->rendered(7.5)->duration(), 7.5, 0.1);
}

TYPED_TEST_P(FilterGraphContract, RenderedGraphStandsAtZeroAtFullVolume) {
  const auto graph = this->rendered();
  this->rig.pass(0.3);
  EXPECT_EQ(graph->currentPosition(), 0);
  EXPECT_EQ(graph->volume(), 0);
}

TYPED_TEST_P(FilterGraphContract, PositionFollowsTheClockWhileRunning) {
  const auto graph = this->rendered();
  graph->run();
  this->rig.pass(1);
  EXPECT_NEAR(graph->currentPosition(), 1, this->rig.slack());
}

TYPED_TEST_P(FilterGraphContract, PositionNeverFallsWhileRunning) {
  const auto graph = this->rendered();
  graph->run();
  for (double last = 0, i = 0; i < 40; ++i) {
    this->rig.pass(0.02);
    EXPECT_GE(graph->currentPosition(), last);
    last = graph->currentPosition();
  }
}

TYPED_TEST_P(FilterGraphContract, PauseFreezesThePositionAndRunGoesOnFromThere) {
  const auto graph = this->rendered();
  graph->run();
  this->rig.pass(0.5);
  graph->pause();
  const double frozen = graph->currentPosition();
  this->rig.pass(0.5);
  EXPECT_EQ(graph->currentPosition(), frozen);
  graph->run();
  EXPECT_GE(graph->currentPosition(), frozen);
  this->rig.pass(0.5);
  EXPECT_NEAR(graph->currentPosition(), frozen + 0.5, this->rig.slack());
}

TYPED_TEST_P(FilterGraphContract, StopLeavesThePositionWhereItWas) {
  const auto graph = this->rendered();
  graph->run();
  this->rig.pass(0.5);
  graph->stop();
  const double stopped = graph->currentPosition();
  EXPECT_NEAR(stopped, 0.5, this->rig.slack());
  this->rig.pass(0.5);
  EXPECT_EQ(graph->currentPosition(), stopped);
}

TYPED_TEST_P(FilterGraphContract, SeekIsSeenAtOnceAndPlayingGoesOnFromThere) {
  const auto graph = this->rendered();
  graph->setCurrentPosition(1.5);
  EXPECT_NEAR(graph->currentPosition(), 1.5, 0.001);
  graph->run();
  this->rig.pass(0.5);
  EXPECT_NEAR(graph->currentPosition(), 2, this->rig.slack());
  graph->setCurrentPosition(0.25);
  this->rig.pass(0.5);
  EXPECT_NEAR(graph->currentPosition(), 0.75, this->rig.slack());
}

TYPED_TEST_P(FilterGraphContract, SeekOutsideTheSongFailsAndChangesNothing) {
  const auto graph = this->rendered();
  graph->setCurrentPosition(1);
  EXPECT_THROW(graph->setCurrentPosition(-0.1), platform::Failure);
  EXPECT_THROW(graph->setCurrentPosition(graph->duration() + 0.1), platform::Failure);
  EXPECT_NEAR(graph->currentPosition(), 1, 0.001);
}

TYPED_TEST_P(FilterGraphContract, PositionStaysAtTheDurationAfterTheEnd) {
  const auto graph = this->rendered(1);
  graph->run();
  this->rig.pass(1 + 2 * this->rig.slack());
  EXPECT_EQ(graph->currentPosition(), graph->duration());
  this->rig.pass(0.3);
  EXPECT_EQ(graph->currentPosition(), graph->duration());
}

TYPED_TEST_P(FilterGraphContract, RunAtTheEndDoesNothing) {
  const auto graph = this->rendered(1);
  graph->setCurrentPosition(graph->duration());
  graph->run();
  this->rig.pass(0.3);
  EXPECT_EQ(graph->currentPosition(), graph->duration());
}

TYPED_TEST_P(FilterGraphContract, VolumeIsReadBackAsItWasSet) {
  const auto graph = this->rendered();
  for (const int volume : {0, -1, -98, -500, -5000, -9999, -10000}) {
    graph->setVolume(volume);
    EXPECT_EQ(graph->volume(), volume);
  }
}

TYPED_TEST_P(FilterGraphContract, VolumeOutsideItsRangeFailsAndChangesNothing) {
  const auto graph = this->rendered();
  graph->setVolume(-98);
  EXPECT_THROW(graph->setVolume(1), platform::Failure);
  EXPECT_THROW(graph->setVolume(-10001), platform::Failure);
  EXPECT_EQ(graph->volume(), -98);
}

TYPED_TEST_P(FilterGraphContract, TwoGraphsPlayIndependently) {
  const auto first = this->rendered(), second = this->rendered();
  first->run();
  this->rig.pass(0.5);
  second->run();
  second->setVolume(-500);
  this->rig.pass(0.5);
  EXPECT_NEAR(first->currentPosition(), 1, this->rig.slack());
  EXPECT_NEAR(second->currentPosition(), 0.5, this->rig.slack());
  EXPECT_EQ(first->volume(), 0);
}

TYPED_TEST_P(FilterGraphContract, ThereIsNoTroubleWhileAllIsWell) {
  const auto graph = this->rendered();
  graph->run();
  EXPECT_EQ(this->rig.factory().soundTrouble(), "");
}

REGISTER_TYPED_TEST_SUITE_P(
    FilterGraphContract, EmptyGraphIsAtZeroAndMayBeStopped, EmptyGraphFailsEveryOtherCall,
    UnplayableFileFailsAndLeavesTheGraphEmpty, GraphThatFailedToRenderMayRenderAnotherFile,
    DurationIsKnownOnceRendered, RenderedGraphStandsAtZeroAtFullVolume,
    PositionFollowsTheClockWhileRunning, PositionNeverFallsWhileRunning,
    PauseFreezesThePositionAndRunGoesOnFromThere, StopLeavesThePositionWhereItWas,
    SeekIsSeenAtOnceAndPlayingGoesOnFromThere, SeekOutsideTheSongFailsAndChangesNothing,
    PositionStaysAtTheDurationAfterTheEnd, RunAtTheEndDoesNothing, VolumeIsReadBackAsItWasSet,
    VolumeOutsideItsRangeFailsAndChangesNothing, TwoGraphsPlayIndependently,
    ThereIsNoTroubleWhileAllIsWell);

}  // namespace nerolith::contracts
