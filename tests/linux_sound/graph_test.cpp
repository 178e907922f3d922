// The deck from file to mix, frame for frame.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cmath>
#include <future>
#include <thread>

#include "linux_sound/offline_engine.h"
#include "platform/failure.h"

namespace nerolith::sound_tests {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

/// The first numbered frame at full level in `heard` from `from` on, as (place, number).
std::pair<std::size_t, std::int64_t> firstNumber(const std::vector<Frame>& heard,
                                                 std::size_t from) {
  for (std::size_t i = from; i < heard.size(); ++i) {
    if (numberOf(heard[i]) >= 0) return {i, numberOf(heard[i])};
  }
  return {heard.size(), -1};
}

TEST(LibavGraph, PlaysEveryFrameOnceFromTheFirst) {
  OfflineEngine machine;
  const auto graph = machine.rendered(machine.file("song.wav", numbered(6)));
  graph->run();
  machine.output->advance(6);
  for (std::size_t i = 0; i < 6 * 44100; ++i) {
    ASSERT_EQ(numberOf(machine.output->heard[i]), static_cast<std::int64_t>(i));
  }
  EXPECT_EQ(machine.engine.counters().starvations, 0U);
}

TEST(LibavGraph, ResumesAfterAPauseBehindTheFrameItFadedOutOn) {
  OfflineEngine machine;
  const auto graph = machine.rendered(machine.file("song.wav", numbered(3)));
  graph->run();
  machine.output->advance(1);
  graph->pause();
  machine.output->advance(0.5);
  EXPECT_EQ(machine.output->heard.back().left, 0);
  graph->run();
  machine.output->advance(0.5);
  // One fade out, silence, one fade in: what is missing at full level is exactly the two fades.
  const auto [place, number] = firstNumber(machine.output->heard, 44100 + 22050);
  EXPECT_EQ(place - (44100 + 22050), static_cast<std::size_t>(sound::kEdgeRampFrames));
  EXPECT_EQ(number, 44100 + 2 * sound::kEdgeRampFrames);
}

TEST(LibavGraph, FrozenPositionIsTheFrameThatComesNext) {
  OfflineEngine machine;
  const auto graph = machine.rendered(machine.file("song.wav", numbered(3)));
  graph->run();
  machine.output->advance(1);
  graph->pause();
  EXPECT_EQ(std::lround(graph->currentPosition() * 44100), 44100 + sound::kEdgeRampFrames);
}

TEST(LibavGraph, SeeksToTheVeryFrame) {
  OfflineEngine machine;
  const auto graph = machine.rendered(machine.file("song.wav", numbered(8)));
  graph->run();
  for (const double target : {5.0, 0.5, 7.25, 1.0 / 3}) {
    machine.output->advance(0.2);
    const std::size_t before = machine.output->heard.size();
    graph->setCurrentPosition(target);
    machine.output->advance(0.2);
    const auto [place, number] = firstNumber(machine.output->heard, before + 300);
    // The first full frame stands as far behind the seek as it stands in the song.
    EXPECT_EQ(number - std::lround(target * 44100), static_cast<std::int64_t>(place - before));
  }
}

TEST(LibavGraph, SeveralSeeksInARowEndAtTheLast) {
  OfflineEngine machine;
  const auto graph = machine.rendered(machine.file("song.wav", numbered(8)));
  graph->run();
  for (int i = 0; i < 50; ++i) graph->setCurrentPosition(0.1 * i);
  machine.output->advance(0.1);
  const auto [place, number] = firstNumber(machine.output->heard, 300);
  EXPECT_EQ(number - static_cast<std::int64_t>(place), std::lround(4.9 * 44100));
}

TEST(LibavGraph, GoesSilentAtOnceWhenDestroyed) {
  OfflineEngine machine;
  auto graph = machine.rendered(machine.file("song.wav", numbered(3)));
  graph->run();
  machine.output->advance(1);
  graph.reset();
  machine.output->advance(0.1);
  for (std::size_t i = 44100 + sound::kEdgeRampFrames; i < machine.output->heard.size(); ++i) {
    ASSERT_EQ(machine.output->heard[i].left, 0);
  }
}

TEST(LibavGraph, StartsTheNextSongWithoutAGapWhileAnotherPlays) {
  OfflineEngine machine;
  const auto old = machine.rendered(machine.file("old.wav", silence(3)));
  const auto next = machine.rendered(machine.file("next.wav", numbered(3)));
  old->run();
  machine.output->advance(1);
  next->run();
  machine.output->advance(1);
  EXPECT_EQ(numberOf(machine.output->heard[44100]), 0);
  EXPECT_EQ(numberOf(machine.output->heard[44101]), 1);
}

TEST(LibavGraph, RendersOneFileOnly) {
  OfflineEngine machine;
  const std::string path = machine.file("song.wav", silence(1));
  const auto graph = machine.rendered(path);
  EXPECT_THROW(graph->renderFile(path), platform::Failure);
}

/// A file on a share that died: opening never returns until the test lets it.
class DeadShare {
 public:
  sound::SourceOpener opener() {
    return
        [gate = gate_](const std::string&, base::JobWatch&) -> std::unique_ptr<sound::AudioSource> {
          gate->wait(false);
          throw platform::Failure("too late");
        };
  }
  ~DeadShare() {
    gate_->store(true);
    gate_->notify_all();
  }

 private:
  std::shared_ptr<std::atomic<bool>> gate_ = std::make_shared<std::atomic<bool>>(false);
};

sound::SoundEngine::OutputMaker manualOutput() {
  return [](sound::DeckMixer& mixer) { return std::make_unique<ManualOutput>(mixer); };
}

TEST(LibavGraph, FailsWhenTheFileDoesNotAnswerInTime) {
  DeadShare share;
  sound::SoundEngine engine(manualOutput(), share.opener(), {.standstill = 100ms});
  const auto graph = engine.createFilterGraph();
  const auto start = Clock::now();
  try {
    graph->renderFile("/dead/song.mp3");
    FAIL() << "rendered a file that does not answer";
  } catch (const platform::Failure& failure) {
    EXPECT_NE(std::string(failure.what()).find("does not answer"), std::string::npos);
  }
  EXPECT_GE(secondsSince(start), 0.1);
  EXPECT_LT(secondsSince(start), 1);
  EXPECT_EQ(graph->currentPosition(), 0);
}

TEST(LibavGraph, WhateverStopsADecoderFromOpeningIsAFailure) {
  sound::SoundEngine engine(
      manualOutput(),
      [](const std::string&, base::JobWatch&) -> std::unique_ptr<sound::AudioSource> {
        throw std::bad_alloc();
      });
  const auto graph = engine.createFilterGraph();
  EXPECT_THROW(graph->renderFile("/music/odd.mp3"), platform::Failure);
  EXPECT_EQ(graph->currentPosition(), 0);
}

TEST(LibavGraph, StuckThreadHoldsUpNeitherTheDeckNorTheProgramsEnd) {
  DeadShare share;
  auto engine = std::make_unique<sound::SoundEngine>(manualOutput(), share.opener(),
                                                     base::Patience::Limits{.standstill = 50ms});
  auto graph = engine->createFilterGraph();
  EXPECT_THROW(graph->renderFile("/dead/song.mp3"), platform::Failure);
  auto start = Clock::now();
  graph.reset();
  EXPECT_LT(secondsSince(start), 0.1);
  start = Clock::now();
  engine.reset();
  EXPECT_LT(secondsSince(start), 1.5);
}

TEST(LibavGraph, FileThatIsReadSlowlyIsWaitedFor) {
  sound::SoundEngine engine(manualOutput(),
                            [](const std::string& path, base::JobWatch& watch) {
                              const auto until = Clock::now() + 900ms;
                              for (; Clock::now() < until; std::this_thread::sleep_for(1ms))
                                ++watch.progress;
                              return sound::openSource(path, watch);
                            },
                            {.standstill = 300ms});
  Scratch scratch;
  writeWave(scratch / "slow.wav", silence(2));
  const auto graph = engine.createFilterGraph();
  graph->renderFile(scratch / "slow.wav");
  EXPECT_EQ(graph->duration(), 2);
}

TEST(LibavGraph, FileThatIsReadForTooLongFailsInTheEnd) {
  sound::SoundEngine engine(
      manualOutput(),
      [](const std::string&, base::JobWatch& watch) -> std::unique_ptr<sound::AudioSource> {
        for (; !watch.abandoned; std::this_thread::sleep_for(1ms)) ++watch.progress;
        throw platform::Failure("too late");
      },
      {.standstill = 5s, .inAll = 200ms});
  const auto graph = engine.createFilterGraph();
  const auto start = Clock::now();
  EXPECT_THROW(graph->renderFile("/slow/song.mp3"), platform::Failure);
  EXPECT_GE(secondsSince(start), 0.2);
  EXPECT_LT(secondsSince(start), 4);
}

/// What a count finds on a share that died: nothing, and after the standstill a failure.
TEST(SoundEngine, DeadShareEndsACountAndHoldsUpNobody) {
  DeadShare share;
  auto engine = std::make_unique<sound::SoundEngine>(manualOutput(), share.opener(),
                                                     base::Patience::Limits{.standstill = 200ms});
  Scratch scratch;
  writeWave(scratch / "song.wav", silence(2));
  auto reader = engine->readDurations({scratch / "song.wav", scratch / "song.wav"});
  auto start = Clock::now();
  EXPECT_TRUE(reader->take().empty());
  EXPECT_LT(secondsSince(start), 1);
  EXPECT_THROW(while (secondsSince(start) < 20) EXPECT_TRUE(reader->take().empty()),
               platform::Failure);
  start = Clock::now();
  reader.reset();
  EXPECT_LT(secondsSince(start), 2);
  start = Clock::now();
  engine.reset();
  EXPECT_LT(secondsSince(start), 1.5);
}

TEST(SoundEngine, CountsAThousandFilesInOrderWhileADeckPlays) {
  OfflineEngine machine;
  const auto graph = machine.rendered(machine.file("song.wav", numbered(20)));
  graph->run();
  std::vector<std::string> paths;
  for (int i = 0; i < 1000; ++i) {
    paths.push_back(machine.scratch / ("short " + std::to_string(i % 7) + ".wav"));
    if (i < 7) writeWave(paths.back(), silence(1 + i));
  }
  std::vector<double> all;
  const auto reader = machine.engine.readDurations(paths);
  while (all.size() < paths.size()) {
    for (const double seconds : reader->take()) all.push_back(seconds);
    machine.output->advance(0.02);
  }
  for (std::size_t i = 0; i < all.size(); ++i) ASSERT_EQ(all[i], 1 + i % 7);
  EXPECT_GT(numberOf(machine.output->heard.back()), 0);
}

/// A song whose medium vanishes in the middle.
class BrokenOff : public sound::AudioSource {
 public:
  std::int64_t totalFrames() const override { return 10 * sound::kSampleRate; }
  std::size_t read(std::span<Frame> out) override {
    const std::size_t count = std::min<std::size_t>(out.size(), left_);
    left_ -= count;
    return count;
  }
  void seek(std::int64_t) override {}

 private:
  std::size_t left_ = sound::kSampleRate;
};

TEST(LibavGraph, MediumThatVanishesEndsTheSong) {
  ManualOutput* output = nullptr;
  sound::SoundEngine engine(
      [&output](sound::DeckMixer& mixer) {
        auto made = std::make_unique<ManualOutput>(mixer);
        output = made.get();
        return made;
      },
      [](const std::string&, base::JobWatch&) { return std::make_unique<BrokenOff>(); });
  const auto graph = engine.createFilterGraph();
  graph->renderFile("/stick/song.mp3");
  graph->run();
  output->advance(1.5);
  EXPECT_EQ(graph->currentPosition(), graph->duration());
}

}  // namespace
}  // namespace nerolith::sound_tests
