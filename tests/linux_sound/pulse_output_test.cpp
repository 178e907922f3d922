// The whole engine on a real sound server, measured at the card.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <thread>

#include "contracts/filter_graph_contract.h"
#include "linux_sound/private_sound_server.h"
#include "linux_sound/real_time.h"
#include "linux_sound/sound_files.h"
#include "linux_sound/wave_file.h"
#include "platform/linux/sound/sound_engine.h"

namespace nerolith::sound_tests {
namespace {

using Frames = std::vector<Frame>;

class OnServer : public testing::Test {
 protected:
  void SetUp() override {
    if (!PrivateSoundServer::available()) GTEST_SKIP() << "pulseaudio is not installed";
    server = std::make_unique<PrivateSoundServer>();
  }
  std::unique_ptr<platform::FilterGraph> rendered(const Frames& frames,
                                                  const std::string& name = "song.wav") {
    writeWave(server->scratch() / name, frames);
    auto graph = engine.createFilterGraph();
    graph->renderFile(server->scratch() / name);
    return graph;
  }

  /// For what a stall of the machine spoils: `play` plays and records, `judge` is given what it
  /// returns. A run with an under-run is repeated and counted; three spoilt ones are a failure.
  template <class Play, class Judge>
  void onQuietMachine(Play play, Judge judge) {
    constexpr int kRuns = 3;
    for (int spoilt = 0; spoilt < kRuns; ++spoilt) {
      const auto before = engine.counters().underRuns;
      const auto heard = play();
      if (HasFatalFailure()) return;
      if (engine.counters().underRuns == before) {
        RecordProperty("spoiltRuns", spoilt);
        judge(heard);
        return;
      }
      std::cout << "    the machine stood still: run repeated\n";
    }
    FAIL() << "The machine stood still in " << kRuns << " runs.";
  }

  std::unique_ptr<PrivateSoundServer> server;
  sound::SoundEngine engine;
};

std::size_t firstSound(const Frames& frames, std::size_t from = 0) {
  while (from < frames.size() && frames[from].left == 0) ++from;
  return from;
}

bool silentFor(const Frames& frames, std::size_t count) {
  return frames.size() > count &&
         std::all_of(frames.end() - static_cast<std::ptrdiff_t>(count), frames.end(),
                     [](const Frame& frame) { return frame.left == 0; });
}

TEST_F(OnServer, EveryFrameArrivesAtTheCardOnce) {
  onQuietMachine(
      [this] {
        const CardRecording card;
        const auto graph = rendered(numbered(4));
        graph->run();
        EXPECT_TRUE(within(8, [&] { return graph->currentPosition() == graph->duration(); }));
        EXPECT_TRUE(card.waitFor([](const Frames& frames) { return silentFor(frames, 4410); }));
        return card.frames();
      },
      [](const Frames& frames) {
        const std::size_t start = firstSound(frames);
        ASSERT_GE(frames.size(), start + 4 * 44100);
        for (std::size_t i = 0; i < 4 * 44100; ++i) {
          ASSERT_EQ(numberOf(frames[start + i]), static_cast<std::int64_t>(i));
        }
      });
}

TEST_F(OnServer, PositionTellsWhatIsHeard) {
  const CardRecording card;
  const auto graph = rendered(numbered(20));
  graph->run();
  pass(1);
  std::vector<double> off;
  for (int i = 0; i < 20; ++i) {
    pass(0.05);
    const double told = graph->currentPosition();
    const std::int64_t heard = numberOf(card.frames().back());
    if (heard >= 0) off.push_back(told - static_cast<double>(heard) / sound::kSampleRate);
  }
  ASSERT_GT(off.size(), 10U);
  std::sort(off.begin(), off.end());
  const double median = off[off.size() / 2];
  RecordProperty("milliseconds", std::to_string(median * 1000));
  std::cout << "    position leads the recording by " << median * 1000 << " ms\n";
  EXPECT_GT(median, -0.03);
  EXPECT_LT(median, 0.06);
}

TEST_F(OnServer, VolumeStepIsHeardWithinATenthOfASecond) {
  const CardRecording card;
  const auto graph = rendered(Frames(20 * 44100, Frame{0.5F, 0.5F}));
  graph->run();
  pass(0.5);
  std::vector<double> delays;
  float level = 0.5F;
  for (int step = 1; step <= 12; ++step) {
    pass(0.1 + 0.0071 * step);
    const float next = 0.5F * static_cast<float>(std::pow(10, -step * 300 / 2000.0));
    const auto start = Clock::now();
    graph->setVolume(-step * 300);
    // Heard: at least half of the step is done. The recorder's own delay counts against us.
    const float half = (level + next) / 2;
    ASSERT_TRUE(within(2, [&] { return card.frames().back().left < half; }));
    delays.push_back(secondsSince(start));
    level = next;
  }
  std::sort(delays.begin(), delays.end());
  std::cout << "    volume step heard after " << delays[6] * 1000 << " ms, at most "
            << delays.back() * 1000 << " ms\n";
  EXPECT_LT(delays[6], 0.1) << "in the median: this machine itself stands still at times";
}

TEST_F(OnServer, VolumeStepsMakeNoClick) {
  onQuietMachine(
      [this] {
        const CardRecording card;
        const auto graph = rendered(Frames(20 * 44100, Frame{0.5F, 0.5F}));
        graph->run();
        pass(0.3);
        const std::size_t from = card.size();
        for (int step = 1; step <= 10; ++step) {
          pass(0.1);
          graph->setVolume(-step * 98);
        }
        pass(0.2);
        const Frames frames = card.frames();
        return Frames(frames.begin() + static_cast<std::ptrdiff_t>(from), frames.end());
      },
      [](const Frames& frames) {
        ASSERT_GT(frames.size(), 44100U);
        float jump = 0;
        for (std::size_t i = 1; i < frames.size(); ++i) {
          jump = std::max(jump, std::abs(frames[i].left - frames[i - 1].left));
        }
        EXPECT_LT(jump, 0.001F);
      });
}

struct PausedSong {
  Frames frames;
  std::size_t between = 0;  // a silent frame of the pause
  std::int64_t frozen = 0;  // the position then, in frames
};

TEST_F(OnServer, PauseAndResumeLoseAndRepeatNothing) {
  onQuietMachine(
      [this] {
        PausedSong song;
        const CardRecording card;
        const auto graph = rendered(numbered(20));
        graph->run();
        pass(0.7);
        graph->pause();
        const auto position = [&] {
          return std::lround(graph->currentPosition() * sound::kSampleRate);
        };
        song.frozen = position();
        EXPECT_TRUE(card.waitFor([](const Frames& frames) { return silentFor(frames, 22050); }));
        EXPECT_EQ(position(), song.frozen);
        song.between = card.size();
        graph->run();
        EXPECT_TRUE(card.waitFor([&](const Frames& frames) {
          return firstSound(frames, song.between) + 4410 < frames.size();
        }));
        song.frames = card.frames();
        return song;
      },
      [](const PausedSong& song) {
        std::size_t last = song.between;
        while (numberOf(song.frames[last]) < 0) --last;
        std::size_t first = song.between;
        while (numberOf(song.frames[first]) < 0) ++first;
        // The frame of each fade that is at full level tells its number too.
        EXPECT_NEAR(numberOf(song.frames[last]), song.frozen - sound::kEdgeRampFrames, 1);
        EXPECT_NEAR(numberOf(song.frames[first]), song.frozen + sound::kEdgeRampFrames, 1);
      });
}

TEST_F(OnServer, StopIsSilentWithinAFifthOfASecond) {
  const CardRecording card;
  auto graph = rendered(Frames(20 * 44100, Frame{0.5F, 0.5F}));
  graph->run();
  pass(0.5);
  const auto start = Clock::now();
  graph->stop();
  graph.reset();
  ASSERT_TRUE(within(2, [&] { return card.frames().back().left == 0; }));
  EXPECT_LT(secondsSince(start), 0.2);
}

TEST_F(OnServer, FirstSoundFollowsRunAtOnce) {
  const CardRecording card;
  const auto first = rendered(Frames(44100, Frame{0.5F, 0.5F}));
  const auto start = Clock::now();
  first->run();
  ASSERT_TRUE(within(2, [&] { return card.frames().back().left != 0; }));
  std::cout << "    first sound after " << secondsSince(start) * 1000 << " ms\n";
  EXPECT_LT(secondsSince(start), 0.14);
}

TEST_F(OnServer, PlayingGoesOnWhenAServerThatDiedIsBack) {
  const auto graph = rendered(numbered(30));
  graph->run();
  pass(0.6);
  server->kill();
  ASSERT_TRUE(within(2, [&] { return !engine.soundTrouble().empty(); }));
  EXPECT_NE(engine.soundTrouble().find("sound server"), std::string::npos);
  const double lost = graph->currentPosition();
  pass(0.5);
  EXPECT_EQ(graph->currentPosition(), lost) << "what is not heard does not count";
  server->start();
  const CardRecording card;
  ASSERT_TRUE(within(4, [&] { return graph->currentPosition() > lost + 0.3; }));
  EXPECT_EQ(engine.soundTrouble(), "");
  ASSERT_TRUE(card.waitFor([](const Frames& frames) { return numberOf(frames.back()) >= 0; }));
}

TEST_F(OnServer, PlayingBeginsWhenAServerThatWasMissingComes) {
  server->kill();
  const auto graph = rendered(numbered(30));
  graph->run();
  ASSERT_TRUE(within(2, [&] { return !engine.soundTrouble().empty(); }));
  EXPECT_EQ(graph->currentPosition(), 0);
  EXPECT_NO_THROW(graph->pause());
  EXPECT_NO_THROW(graph->setCurrentPosition(5));
  EXPECT_NO_THROW(graph->run());
  server->start();
  ASSERT_TRUE(within(4, [&] { return graph->currentPosition() > 5.3; }));
  EXPECT_EQ(engine.soundTrouble(), "");
}

TEST_F(OnServer, ServerThatHangsIsToldAndHoldsNobodyUp) {
  const auto graph = rendered(numbered(30));
  graph->run();
  pass(0.3);
  server->freeze();
  const bool told = within(5, [&] { return !engine.soundTrouble().empty(); });
  const auto start = Clock::now();
  graph->pause();
  static_cast<void>(graph->currentPosition());
  graph->run();
  const double took = secondsSince(start);
  server->thaw();
  EXPECT_TRUE(told);
  EXPECT_LT(took, 0.1);
  EXPECT_TRUE(within(4, [&] { return engine.soundTrouble().empty(); }));
}

TEST_F(OnServer, ServerThatHangsFromTheBeginningIsTold) {
  server->freeze();
  const auto graph = rendered(numbered(30));
  graph->run();
  const bool told = within(5, [&] { return !engine.soundTrouble().empty(); });
  server->thaw();
  EXPECT_TRUE(told);
  EXPECT_TRUE(within(4, [&] { return graph->currentPosition() > 0.3; }));
  EXPECT_EQ(engine.soundTrouble(), "");
}

TEST_F(OnServer, PlayingGoesOnWhenTheOnlyDeviceIsTakenAwayAndAnotherComes) {
  const auto graph = rendered(numbered(30));
  graph->run();
  pass(0.6);
  ASSERT_TRUE(runTool("pactl unload-module module-null-sink"));
  ASSERT_TRUE(within(2, [&] { return !engine.soundTrouble().empty(); }));
  const double lost = graph->currentPosition();
  ASSERT_TRUE(runTool("pactl load-module module-null-sink sink_name=other norewinds=1"));
  EXPECT_TRUE(within(5, [&] { return graph->currentPosition() > lost + 0.3; }));
  EXPECT_EQ(engine.soundTrouble(), "");
}

TEST_F(OnServer, LeavesTheServersOwnVolumeAlone) {
  const auto graph = rendered(Frames(20 * 44100, Frame{0.5F, 0.5F}));
  graph->run();
  graph->setVolume(-10000);
  pass(0.2);
  EXPECT_TRUE(runTool("pactl list sink-inputs | grep 'Volume:.*100%'"));
  EXPECT_TRUE(runTool("test $(pactl list short sink-inputs | wc -l) = 1"));
}

TEST_F(OnServer, StreamStandsStillWhenNothingPlays) {
  const auto graph = rendered(Frames(8820, Frame{0.5F, 0.5F}));
  graph->run();
  pass(1.5);
  EXPECT_TRUE(runTool("pactl list sink-inputs | grep 'Corked: yes'"));
  EXPECT_EQ(engine.counters().underRuns, 0U);
}

}  // namespace
}  // namespace nerolith::sound_tests

namespace nerolith::contracts {
namespace {

/// The same contract through the real sound server, in real time.
class PulseRig : public FilterGraphRig {
 public:
  PulseRig() {
    if (sound_tests::PrivateSoundServer::available()) {
      server_ = std::make_unique<sound_tests::PrivateSoundServer>();
    }
  }
  std::string unavailable() const override { return server_ ? "" : "pulseaudio is not installed"; }
  platform::FilterGraphFactory& factory() override { return engine_; }
  std::string soundFile(double seconds) override {
    const std::string path = server_->scratch() / (std::to_string(seconds) + ".wav");
    sound_tests::writeWave(path, sound_tests::chirp(seconds));
    return path;
  }
  std::string missingFile() override { return server_->scratch() / "missing.mp3"; }
  std::string brokenFile() override {
    const std::string path = server_->scratch() / "broken.mp3";
    sound_tests::writeBytes(path, {'n', 'o', ' ', 's', 'o', 'u', 'n', 'd'});
    return path;
  }
  void pass(double seconds) override {
    std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
  }
  double slack() const override { return 0.25; }  // this machine may stand still for 160 ms

 private:
  std::unique_ptr<sound_tests::PrivateSoundServer> server_;
  sound::SoundEngine engine_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(LibavOnServer, FilterGraphContract, PulseRig);

}  // namespace
}  // namespace nerolith::contracts
