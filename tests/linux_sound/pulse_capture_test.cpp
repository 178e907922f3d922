// What the card plays, captured by the player and compared with what another program captured.
#include "platform/linux/sound/pulse_capture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <iostream>
#include <iterator>
#include <optional>
#include <random>

#include "contracts/calibration_tone_contract.h"
#include "contracts/sound_capture_contract.h"
#include "linux_sound/private_sound_server.h"
#include "linux_sound/real_time.h"
#include "linux_sound/sound_files.h"
#include "linux_sound/wave_file.h"
#include "platform/failure.h"
#include "platform/linux/sound/pulse_tone.h"
#include "platform/linux/sound/sound_engine.h"

namespace nerolith::sound_tests {
namespace {

using Samples = std::vector<std::int16_t>;
using sound::PulseCapture;

constexpr platform::WaveFormat kFormat{1, 2, 44100, 176400, 4, 16, 0};
constexpr std::int32_t kBytes = 705600;

/// A running capture; `fetch` collects what arrived since the last time.
class Captured {
 public:
  explicit Captured(PulseCapture& capture)
      : device_(capture.openDefaultDevice()), buffer_(device_->createBuffer(kFormat, kBytes)) {
    buffer_->startLooping();
  }
  /// Samples that arrived, all in all.
  std::size_t fetch() {
    const std::int32_t now = buffer_->cursors().read;
    const std::int32_t count = (now - fetched_ + kBytes) % kBytes;
    const std::size_t before = samples.size();
    samples.resize(before + static_cast<std::size_t>(count / 2));
    buffer_->read(fetched_, count, std::span(samples).subspan(before));
    fetched_ = now;
    return samples.size();
  }
  /// Collects for so many seconds.
  void fetchFor(double seconds) {
    for (const auto start = Clock::now(); secondsSince(start) < seconds; pass(0.1)) fetch();
  }
  platform::CaptureBuffer& buffer() { return *buffer_; }

  Samples samples;  // left and right in turn

 private:
  std::unique_ptr<platform::CaptureDevice> device_;
  std::unique_ptr<platform::CaptureBuffer> buffer_;
  std::int32_t fetched_ = 0;
};

int peakOf(std::span<const std::int16_t> samples) {
  int peak = 0;
  for (const int sample : samples) peak = std::max(peak, std::abs(sample));
  return peak;
}

class CaptureOnServer : public testing::Test {
 protected:
  void SetUp() override {
    if (!PrivateSoundServer::available()) GTEST_SKIP() << "pulseaudio is not installed";
    server = std::make_unique<PrivateSoundServer>();
  }
  /// A song whose samples are no others'.
  std::unique_ptr<platform::FilterGraph> noise(const std::string& name, unsigned seed,
                                               double seconds) {
    std::mt19937 dice(seed);
    std::uniform_real_distribution<float> level(-0.4F, 0.4F);
    std::vector<Frame> frames(static_cast<std::size_t>(seconds * sound::kSampleRate));
    for (Frame& frame : frames) frame = {level(dice), level(dice)};
    writeWave(server->scratch() / name, frames);
    auto graph = engine.createFilterGraph();
    graph->renderFile(server->scratch() / name);
    return graph;
  }
  /// The peak of the last fifth of a second, once so much more has been captured.
  int peakNow(Captured& captured, double after = 0.5) {
    const std::size_t before = captured.fetch();
    const auto more = static_cast<std::size_t>(after * 88200);
    if (!within(10, [&] { return captured.fetch() >= before + more; })) return -1;
    return peakOf(std::span(captured.samples).last(17640));
  }

  std::unique_ptr<PrivateSoundServer> server;
  sound::SoundEngine engine;
  PulseCapture capture;
};

std::int16_t rounded(float level) {
  return static_cast<std::int16_t>(std::lround(std::clamp(level * 32768.0F, -32768.0F, 32767.0F)));
}

bool sameFrame(const Samples& samples, std::size_t frame, const Frame& other) {
  // Two programs may round a half differently.
  return std::abs(samples[2 * frame] - rounded(other.left)) <= 1 &&
         std::abs(samples[2 * frame + 1] - rounded(other.right)) <= 1;
}

/// Where in `card` the captured frames from `frame` on are; nothing: nowhere.
std::optional<std::size_t> findIn(const std::vector<Frame>& card, const Samples& samples,
                                  std::size_t frame) {
  constexpr std::size_t kEnough = 32;  // of noise
  for (std::size_t at = 0; at + kEnough <= card.size(); ++at) {
    std::size_t same = 0;
    while (same < kEnough && sameFrame(samples, frame + same, card[at + same])) ++same;
    if (same == kEnough) return at;
  }
  return std::nullopt;
}

TEST_F(CaptureOnServer, EveryFrameThatTheCardPlaysArrivesWhileBothDecksPlay) {
  const auto first = noise("first.wav", 1, 19), second = noise("second.wav", 2, 19);
  const CardRecording card;
  Captured captured(capture);
  first->run();
  second->run();
  captured.fetchFor(17);
  first->stop();
  second->stop();
  pass(0.3);
  captured.fetch();

  const std::vector<Frame> played = card.frames();
  constexpr std::size_t kFrom = 44100, kFrames = 15 * 44100;
  ASSERT_GE(captured.samples.size() / 2, kFrom + kFrames);
  ASSERT_GT(peakOf(std::span(captured.samples).subspan(2 * kFrom, 8820)), 8000);
  const auto at = findIn(played, captured.samples, kFrom);
  ASSERT_TRUE(at) << "what was captured is not what the card played";
  std::size_t same = 0;
  while (same < kFrames && *at + same < played.size() &&
         sameFrame(captured.samples, kFrom + same, played[*at + same])) {
    ++same;
  }
  EXPECT_EQ(same, kFrames) << "the first frame lost or broken is " << same / 44100.0 << " s in";
}

TEST_F(CaptureOnServer, SoundIsThereToBeSeenTenTimesASecond) {
  Captured captured(capture);
  captured.fetchFor(0.5);
  int looks = 0, empty = 0;
  for (std::size_t before = captured.fetch(); looks < 50; ++looks) {
    pass(0.1);
    const std::size_t now = captured.fetch();
    if (now == before) ++empty;
    before = now;
  }
  EXPECT_LE(empty, 1) << "the machine itself may stand still once";
}

TEST_F(CaptureOnServer, WakesNoThreadOfItsOwnAndIsThereAllTheSameWhenSomebodyLooks) {
  const auto threads = [] {
    const std::filesystem::directory_iterator all("/proc/self/task");
    return std::distance(begin(all), end(all));
  };
  const auto device = capture.openDefaultDevice();
  const auto before = threads();
  constexpr std::int32_t kSecond = 176400;
  const auto buffer = device->createBuffer(kFormat, kSecond);
  buffer->startLooping();
  EXPECT_EQ(threads(), before);
  ASSERT_TRUE(within(3, [&] { return buffer->cursors().read != 0; }));
  const std::int32_t from = buffer->cursors().read;
  pass(1.5);  // a round and a half in which nobody asks
  const double moved = ((buffer->cursors().read - from + kSecond) % kSecond) / 176400.0;
  EXPECT_NEAR(moved, 0.5, 0.25);
}

TEST_F(CaptureOnServer, SongThatIsStartedBehindTheCaptureIsCapturedFromItsBeginning) {
  writeWave(server->scratch() / "song.wav", numbered(5));
  const auto song = engine.createFilterGraph();
  song->renderFile(server->scratch() / "song.wav");
  Captured captured(capture);
  song->run();
  captured.fetchFor(1);
  const auto number = [&](std::size_t frame) {
    const auto* both = &captured.samples[2 * frame];
    return numberOf({static_cast<float>(both[0]) / 32768, static_cast<float>(both[1]) / 32768});
  };
  std::size_t begin = 0;
  while (begin < 22050 && captured.samples[2 * begin] == 0) ++begin;
  ASSERT_GE(captured.samples.size() / 2, begin + 4410);
  for (std::size_t i = 0; i < 4410; ++i) {
    ASSERT_EQ(number(begin + i), static_cast<std::int64_t>(i));
  }
}

TEST_F(CaptureOnServer, GoesOnFromTheMonitorOfAnotherDefaultDevice) {
  ASSERT_TRUE(runTool("pactl load-module module-null-sink sink_name=other norewinds=1"));
  const auto song = noise("song.wav", 4, 30);
  Captured captured(capture);
  song->run();
  ASSERT_GT(peakNow(captured), 8000);
  ASSERT_TRUE(runTool("pactl set-default-sink other"));
  ASSERT_TRUE(runTool("pactl move-sink-input $(pactl list short sink-inputs | cut -f1) other"));
  EXPECT_GT(peakNow(captured, 1), 8000);
  ASSERT_TRUE(
      runTool("pactl list short source-outputs | "
              "grep -q $(printf '\\t')$(pactl list short sources | "
              "grep other.monitor | cut -f1)$(printf '\\t')"));
  EXPECT_EQ(capture.captureTrouble(), "");
}

TEST_F(CaptureOnServer, GoesOnWhenTheDefaultDeviceIsTakenAway) {
  ASSERT_TRUE(runTool("pactl load-module module-rescue-streams"));
  ASSERT_TRUE(runTool("pactl load-module module-null-sink sink_name=other norewinds=1"));
  const auto song = noise("song.wav", 5, 30);
  Captured captured(capture);
  song->run();
  ASSERT_GT(peakNow(captured), 8000);
  ASSERT_TRUE(
      runTool("pactl unload-module module-null-sink; pactl load-module module-null-sink "
              "sink_name=third norewinds=1 && pactl set-default-sink third"));
  EXPECT_GT(peakNow(captured, 1), 8000);
}

TEST_F(CaptureOnServer, NeverTakesTheMicrophone) {
  // A source that hums, and is the default one.
  ASSERT_TRUE(runTool("pactl load-module module-rescue-streams"));
  ASSERT_TRUE(runTool("pactl load-module module-sine-source source_name=microphone"));
  ASSERT_TRUE(runTool("pactl set-default-source microphone"));
  Captured captured(capture);
  EXPECT_EQ(peakNow(captured, 1), 0);
  EXPECT_FALSE(
      runTool("pactl move-source-output "
              "$(pactl list short source-outputs | cut -f1) microphone"))
      << "nor can anybody else give it one";
  EXPECT_EQ(peakNow(captured, 1), 0);
  // Without any output device there is nothing but the microphone left.
  const std::size_t before = captured.fetch();
  ASSERT_TRUE(runTool("pactl unload-module module-null-sink"));
  pass(1.5);
  captured.fetch();
  EXPECT_EQ(peakOf(captured.samples), 0);
  EXPECT_LT(captured.samples.size() - before, 88200U / 4) << "nothing more arrives";
  EXPECT_NE(capture.captureTrouble(), "");
  EXPECT_THROW(static_cast<void>(capture.openDefaultDevice()), platform::Failure);
}

TEST_F(CaptureOnServer, StandsStillWhileTheServerIsAwayAndGoesOnWhenItIsBack) {
  const auto song = noise("song.wav", 6, 60);
  Captured captured(capture);
  song->run();
  ASSERT_GT(peakNow(captured), 8000);
  server->kill();
  ASSERT_TRUE(within(2, [&] { return !capture.captureTrouble().empty(); }));
  const std::int32_t stood = captured.buffer().cursors().read;
  pass(0.5);
  EXPECT_EQ(captured.buffer().cursors().read, stood);
  server->start();
  EXPECT_GT(peakNow(captured, 1), 8000);
  EXPECT_EQ(capture.captureTrouble(), "");
}

TEST_F(CaptureOnServer, ToneIsHeardBesideTheMusicAndAgainOnceTheServerIsBack) {
  sound::PulseTone tone;
  const auto humming = tone.createBuffer(contracts::kMono, 88200);
  humming->write(contracts::squareWave(44100, 5000));
  humming->playLooping();
  Captured captured(capture);
  EXPECT_EQ(peakNow(captured), 5000);
  const auto song = noise("song.wav", 7, 60);
  song->run();
  EXPECT_GT(peakNow(captured), 15000) << "both";
  song->stop();
  server->kill();
  ASSERT_TRUE(within(2, [&] { return !capture.captureTrouble().empty(); }));
  server->start();
  EXPECT_TRUE(within(5, [&] { return peakNow(captured, 0.1) == 5000; }));
}

TEST_F(CaptureOnServer, WithoutAServerThereIsNoTone) {
  server->kill();
  sound::PulseTone tone;
  EXPECT_THROW(static_cast<void>(tone.createBuffer(contracts::kMono, 88200)), platform::Failure);
}

TEST_F(CaptureOnServer, FormatsThatAreNoneFail) {
  const auto device = capture.openDefaultDevice();
  const auto with = [](auto change) {
    platform::WaveFormat format = kFormat;
    change(format);
    return format;
  };
  const std::vector<platform::WaveFormat> none{
      with([](auto& f) { f.formatTag = 2; }), with([](auto& f) { f.bitsPerSample = 24; }),
      with([](auto& f) { f.channels = 0; }), with([](auto& f) { f.channels = 300; }),
      with([](auto& f) { f.samplesPerSecond = 0; })};
  sound::PulseTone tone;
  for (const auto& format : none) {
    EXPECT_THROW(static_cast<void>(device->createBuffer(format, kBytes)), platform::Failure);
    EXPECT_THROW(static_cast<void>(tone.createBuffer(format, kBytes)), platform::Failure);
  }
  for (const std::int32_t bytes : {0, -4, 705601}) {
    EXPECT_THROW(static_cast<void>(device->createBuffer(kFormat, bytes)), platform::Failure);
  }
}

TEST_F(CaptureOnServer, WithoutAServerThereIsNoDevice) {
  server->kill();
  const auto start = Clock::now();
  EXPECT_THROW(static_cast<void>(capture.openDefaultDevice()), platform::Failure);
  EXPECT_LT(secondsSince(start), 1);
}

TEST_F(CaptureOnServer, ServerThatHangsIsGivenUpAfterTwoSeconds) {
  const auto device = capture.openDefaultDevice();
  const auto buffer = device->createBuffer(kFormat, kBytes);
  server->freeze();
  const auto start = Clock::now();
  EXPECT_THROW(static_cast<void>(device->createBuffer(kFormat, kBytes)), platform::Failure);
  const double gaveUp = secondsSince(start);
  buffer->startLooping();
  buffer->stop();
  const double rested = secondsSince(start) - gaveUp;
  server->thaw();
  EXPECT_LT(gaveUp, 3);
  EXPECT_LT(rested, 1);
}

TEST_F(CaptureOnServer, BufferAtRestLeavesTheDeviceAlone) {
  const auto device = capture.openDefaultDevice();
  EXPECT_TRUE(runTool("test -z \"$(pactl list short source-outputs)\"")) << "no stream yet";
  const auto buffer = device->createBuffer(kFormat, kBytes);
  EXPECT_TRUE(runTool("pactl list source-outputs | grep 'Corked: yes'"));
  buffer->startLooping();
  EXPECT_TRUE(runTool("pactl list source-outputs | grep 'Corked: no'"));
  buffer->stop();
  EXPECT_TRUE(within(2, [] { return runTool("pactl list source-outputs | grep 'Corked: yes'"); }));
}

}  // namespace
}  // namespace nerolith::sound_tests

namespace nerolith::contracts {
namespace {

/// Capture and tone through the real sound server, in real time: each is what the other is judged
/// by.
class PulseSoundRig : public RealSoundRig {
 public:
  PulseSoundRig() {
    if (sound_tests::PrivateSoundServer::available()) {
      server_ = std::make_unique<sound_tests::PrivateSoundServer>();
    }
  }
  ~PulseSoundRig() override { fallSilent(); }
  std::string unavailable() const override { return server_ ? "" : "pulseaudio is not installed"; }
  platform::SoundCapture& capture() override { return capture_; }
  platform::CalibrationTone& tone() override { return tone_; }
  void pass(double seconds) override { sound_tests::pass(seconds); }
  double slack() const override { return 0.25; }  // this machine may stand still for 160 ms

 private:
  std::unique_ptr<sound_tests::PrivateSoundServer> server_;
  sound::PulseCapture capture_;
  sound::PulseTone tone_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(PulseServer, SoundCaptureContract, PulseSoundRig);
INSTANTIATE_TYPED_TEST_SUITE_P(PulseServer, CalibrationToneContract, PulseSoundRig);

}  // namespace
}  // namespace nerolith::contracts
