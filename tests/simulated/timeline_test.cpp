#include "platform/simulated/timeline.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "platform/simulated/simulated_machine.h"

namespace nerolith::platform::simulated {
namespace {

using namespace std::chrono_literals;

struct Ticking {
  Ticking(Timeline& timeline, std::chrono::milliseconds interval, std::function<void()> call)
      : timeline(timeline), timer(interval), subscription(timer.tick.subscribe(std::move(call))) {
    timeline.add(timer);
  }
  ~Ticking() { timeline.drop(timer); }
  Timeline& timeline;
  controls::Timer timer;
  base::Subscription subscription;
};

TEST(Timeline, RunsTimersAndPostedCallsInTheOrderOfTime) {
  Timeline timeline;
  std::string log;
  const Ticking slow(timeline, 300ms, [&] { log += "S"; });
  const Ticking fast(timeline, 100ms, [&] {
    log += "f";
    timeline.post([&] { log += "p"; });
  });
  timeline.post([&] { log += "P"; });
  timeline.advance(300ms);
  EXPECT_EQ(log, "PfpfpSfp");  // at 300 ms the one added first
  EXPECT_EQ(timeline.now(), 300ms);
}

TEST(Timeline, TheFirstTickComesAfterAWholeIntervalAndSoDoesOneAfterAPause) {
  Timeline timeline;
  int ticks = 0;
  Ticking ticking(timeline, 100ms, [&] { ++ticks; });
  timeline.advance(99ms);
  EXPECT_EQ(ticks, 0);
  ticking.timer.setEnabled(false);
  timeline.advance(1s);
  ticking.timer.setEnabled(true);
  timeline.advance(99ms);
  EXPECT_EQ(ticks, 0);
  timeline.advance(1ms);
  EXPECT_EQ(ticks, 1);
}

TEST(Timeline, ATickThatYieldsLetsTheOthersRunButNotItself) {
  Timeline timeline;
  int inside = 0, deepest = 0, others = 0;
  const Ticking waiting(timeline, 100ms, [&] {
    deepest = std::max(deepest, ++inside);
    timeline.advance(1s);
    --inside;
  });
  const Ticking other(timeline, 100ms, [&] { ++others; });
  timeline.advance(100ms);
  EXPECT_EQ(deepest, 1);
  EXPECT_EQ(others, 11);
  EXPECT_EQ(timeline.now(), 1100ms);
}

TEST(Timeline, TicksMissedWhileTheThreadWasBusyAreNotMadeUp) {
  Timeline timeline;
  int ticks = 0;
  const Ticking ticking(timeline, 100ms, [&] {
    if (++ticks == 1) timeline.stall(1s);
  });
  timeline.advance(1200ms);
  EXPECT_EQ(ticks, 2);  // at 100 ms, and at 1200 ms
}

TEST(Timeline, AYieldingLoopThatWaitsForTheClockEnds) {
  SimulatedMachine machine;
  const double start = machine.clock.secondsSinceMidnight();
  int passes = 0;
  while (machine.clock.secondsSinceMidnight() < start + 0.5 && passes < 10000) {
    machine.events.runWaitingEvents();
    ++passes;
  }
  EXPECT_EQ(passes, 500);
}

TEST(Timeline, ABusyLoopThatReadsTheClockEndsWhenReadingsTakeTime) {
  SimulatedMachine machine;
  machine.clock.setReadingTime(1ms);
  const double start = machine.clock.secondsSinceMidnight();
  int readings = 0;
  while (machine.clock.secondsSinceMidnight() < start + 0.1 && readings < 10000) ++readings;
  EXPECT_NEAR(readings, 100, 1);
}

TEST(Timeline, NothingRunsAfterTheEndThoughTimePasses) {
  SimulatedMachine machine;
  int ticks = 0;
  const Ticking ticking(machine.timeline, 100ms, [&] {
    if (++ticks == 3) machine.events.quit();
  });
  machine.events.post([] {});
  EXPECT_TRUE(machine.pending());
  machine.advance(1s);
  EXPECT_EQ(ticks, 3);
  EXPECT_TRUE(machine.quitAsked());
  EXPECT_FALSE(machine.pending());
  EXPECT_EQ(machine.timeline.now(), 1s);
  EXPECT_EQ(machine.trace(), "events.quit");
}

TEST(Timeline, ACallThatPostsItselfDoesNotHoldTimeUp) {
  Timeline timeline;
  int runs = 0;
  std::function<void()> again = [&] {
    ++runs;
    timeline.post(again);
  };
  timeline.post(again);
  timeline.advance(1s);
  EXPECT_EQ(runs, 1);
  EXPECT_EQ(timeline.postedCalls(), 1u);
}

TEST(Timeline, ATimerMayBeDroppedInItsOwnTick) {
  Timeline timeline;
  controls::Timer timer(100ms);
  int ticks = 0;
  const auto subscription = timer.tick.subscribe([&] {
    ++ticks;
    timeline.drop(timer);
  });
  timeline.add(timer);
  timeline.advance(1s);
  EXPECT_EQ(ticks, 1);
  EXPECT_EQ(timeline.runningTimers(), 0u);
}

TEST(Timeline, AnEventsExceptionReachesTheTestAndTheTimerGoesOn) {
  Timeline timeline;
  int ticks = 0;
  const Ticking ticking(timeline, 100ms, [&] {
    if (++ticks == 1) throw std::logic_error("a test's own");
  });
  EXPECT_THROW(timeline.advance(1s), std::logic_error);
  EXPECT_EQ(timeline.now(), 100ms);
  timeline.advance(100ms);
  EXPECT_EQ(ticks, 2);
}

TEST(SimulatedClock, PassesMidnight) {
  SimulatedMachine machine;
  machine.advance(3s);
  machine.clock.set(45123, 23h + 59min + 59s + 900ms);
  EXPECT_EQ(machine.clock.today(), 45123);
  EXPECT_DOUBLE_EQ(machine.clock.secondsSinceMidnight(), 86399.9);
  machine.advance(200ms);
  EXPECT_EQ(machine.clock.today(), 45124);
  EXPECT_DOUBLE_EQ(machine.clock.secondsSinceMidnight(), 0.1);
}

TEST(SimulatedMachine, ADayOfTicksOverTenThousandSongsTakesSeconds) {
  SimulatedMachine machine;
  machine.recordTrace(false);
  for (int i = 0; i < 10000; ++i)
    machine.files.addFile("C:\\Music\\" + std::to_string(i) + ".mp3", {.duration = 200});
  std::unique_ptr<FilterGraph> deck;
  int song = 0, ticks = 0;
  const Ticking ticking(machine.timeline, 100ms, [&] {
    ++ticks;
    if (deck && deck->currentPosition() < deck->duration()) return;
    deck = machine.decks.createFilterGraph();
    deck->renderFile("C:\\Music\\" + std::to_string(song++ % 10000) + ".mp3");
    deck->run();
  });
  const auto start = std::chrono::steady_clock::now();
  machine.advance(24h);
  const auto took = std::chrono::steady_clock::now() - start;
  EXPECT_EQ(ticks, 864000);
  EXPECT_EQ(song, 432);  // the first starts at 0.1 s
  EXPECT_LT(took, 5s);   // half of what a whole player may take
}

}  // namespace
}  // namespace nerolith::platform::simulated
