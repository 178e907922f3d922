// The mix on decks whose frames the test writes itself.
#include "platform/linux/sound/deck_mixer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <vector>

namespace nerolith::sound {
namespace {

struct Deck {
  std::shared_ptr<DeckFeed> feed = std::make_shared<DeckFeed>();
  DeckMixer::Voice voice;

  Deck(DeckMixer& mixer, const std::vector<Frame>& frames) {
    auto room = feed->queue.writable();
    std::copy(frames.begin(), frames.end(), room.begin());
    feed->queue.commit(frames.size());
    feed->queue.finish();
    voice = std::make_shared<DeckVoice>(feed, static_cast<std::int64_t>(frames.size()));
    mixer.add(voice);
  }
};

std::vector<Frame> constant(std::size_t count, float level) {
  return std::vector<Frame>(count, Frame{level, -level});
}

std::vector<Frame> mixed(DeckMixer& mixer, std::size_t count) {
  std::vector<Frame> out(count);
  mixer.mix(out);
  return out;
}

float largestJump(const std::vector<Frame>& frames) {
  float jump = 0;
  for (std::size_t i = 1; i < frames.size(); ++i) {
    jump = std::max(jump, std::abs(frames[i].left - frames[i - 1].left));
  }
  return jump;
}

void expectGoldenMix(const std::vector<Frame>& out) {
  const std::string golden = NEROLITH_SOURCE_DIR "/tests/linux_sound/golden_mix.txt";
  std::ofstream actual(golden + ".actual");
  for (std::size_t i = 0; i < out.size(); i += 10) {
    actual << std::lround(out[i].left * 10000) << ' ' << std::lround(out[i].right * 10000) << '\n';
  }
  actual.close();
  std::ifstream expected(golden);
  ASSERT_TRUE(expected) << "no golden mix; compare and keep " << golden << ".actual";
  for (std::size_t i = 0; i < out.size(); i += 10) {
    long left = 0;
    long right = 0;
    ASSERT_TRUE(expected >> left >> right);
    EXPECT_NEAR(out[i].left * 10000, static_cast<double>(left), 1.5) << "frame " << i;
    EXPECT_NEAR(out[i].right * 10000, static_cast<double>(right), 1.5) << "frame " << i;
  }
}

TEST(DeckMixer, GivesSilenceWithoutDecks) {
  DeckMixer mixer;
  std::vector<Frame> out = constant(64, 1);
  EXPECT_FALSE(mixer.mix(out));
  EXPECT_TRUE(std::all_of(out.begin(), out.end(), [](Frame f) { return f.left == 0; }));
}

TEST(DeckMixer, GivesASongFromItsFirstFrameUntouched) {
  DeckMixer mixer;
  Deck deck(mixer, constant(1000, 0.5F));
  mixer.run(deck.voice);
  EXPECT_TRUE(mixer.active());
  const auto out = mixed(mixer, 1000);
  EXPECT_TRUE(std::all_of(out.begin(), out.end(),
                          [](Frame f) { return f.left == 0.5F && f.right == -0.5F; }));
}

TEST(DeckMixer, AddsTheDecksUp) {
  DeckMixer mixer;
  Deck first(mixer, constant(1000, 0.25F));
  Deck second(mixer, constant(1000, 0.5F));
  mixer.run(first.voice);
  mixer.run(second.voice);
  EXPECT_EQ(mixed(mixer, 10).back().left, 0.75F);
}

TEST(DeckMixer, ClipsTheSumOnceAndCountsEachSampleCut) {
  DeckMixer mixer;
  Deck first(mixer, constant(100, 0.75F));
  Deck second(mixer, constant(60, 0.75F));
  mixer.run(first.voice);
  mixer.run(second.voice);
  const auto out = mixed(mixer, 100);
  EXPECT_EQ(out.front().left, 1);
  EXPECT_EQ(out.front().right, -1);
  EXPECT_EQ(out.back().left, 0.75F);
  EXPECT_EQ(mixer.clippedSamples(), 120U);
}

TEST(DeckMixer, RunsAVolumeStepOutOverTwentyMilliseconds) {
  DeckMixer mixer;
  Deck deck(mixer, constant(4000, 1));
  mixer.run(deck.voice);
  mixed(mixer, 100);
  mixer.setGain(deck.voice, 0.5F);
  const auto out = mixed(mixer, 2000);
  EXPECT_GT(out[kVolumeRampFrames / 2].left, 0.7F);
  EXPECT_FLOAT_EQ(out[kVolumeRampFrames].left, 0.5F);
  EXPECT_LT(largestJump(out), 0.5F / kVolumeRampFrames * 1.5F);
}

TEST(DeckMixer, TakesAVolumeSetBeforeTheStartAtOnce) {
  DeckMixer mixer;
  Deck deck(mixer, constant(100, 1));
  mixer.setGain(deck.voice, 0.5F);
  mixer.run(deck.voice);
  EXPECT_EQ(mixed(mixer, 10).front().left, 0.5F);
}

TEST(DeckMixer, PausesAndResumesWithoutAClickOrALostFrame) {
  DeckMixer mixer;
  std::vector<Frame> frames(8000);
  for (std::size_t i = 0; i < frames.size(); ++i) frames[i].left = static_cast<float>(i) / 8000;
  Deck deck(mixer, frames);
  mixer.run(deck.voice);
  std::vector<Frame> out = mixed(mixer, 3000);
  mixer.halt(deck.voice);
  const std::int64_t frozen = mixer.positionHeard(deck.voice, 0);
  EXPECT_EQ(frozen, 3000 + kEdgeRampFrames);
  const auto rest = mixed(mixer, 1000);
  EXPECT_EQ(rest.back().left, 0);
  out.insert(out.end(), rest.begin(), rest.end());
  EXPECT_FALSE(mixer.active());
  mixer.run(deck.voice);
  const auto more = mixed(mixer, 1000);
  out.insert(out.end(), more.begin(), more.end());
  EXPECT_EQ(more.back().left, frames[static_cast<std::size_t>(frozen) + 999].left);
  EXPECT_LT(largestJump(out), 0.01F);
}

TEST(DeckMixer, FadesOutADeckThatIsTakenAwayWhileItPlays) {
  DeckMixer mixer;
  Deck deck(mixer, constant(8000, 1));
  mixer.run(deck.voice);
  auto out = mixed(mixer, 100);
  mixer.remove(deck.voice);
  deck.voice.reset();
  const auto rest = mixed(mixer, 1000);
  out.insert(out.end(), rest.begin(), rest.end());
  EXPECT_LT(largestJump(out), 0.01F);
  EXPECT_EQ(rest[kEdgeRampFrames].left, 0);
}

TEST(DeckMixer, TwoDecksTakenAwayTogetherBothFade) {
  DeckMixer mixer;
  Deck first(mixer, constant(8000, 0.5F));
  Deck second(mixer, constant(8000, 0.25F));
  mixer.run(first.voice);
  mixer.run(second.voice);
  auto out = mixed(mixer, 100);
  mixer.remove(first.voice);
  const auto between = mixed(mixer, 50);
  out.insert(out.end(), between.begin(), between.end());
  mixer.remove(second.voice);
  const auto rest = mixed(mixer, 1000);
  out.insert(out.end(), rest.begin(), rest.end());
  EXPECT_LT(largestJump(out), 0.01F);
  EXPECT_EQ(rest.back().left, 0);
}

TEST(DeckMixer, TellsWhatIsHeardNotWhatWasMixed) {
  DeckMixer mixer;
  Deck deck(mixer, constant(8000, 1));
  mixed(mixer, 500);
  mixer.run(deck.voice);
  mixed(mixer, 4000);
  EXPECT_EQ(mixer.positionHeard(deck.voice, 400), 0);
  EXPECT_EQ(mixer.positionHeard(deck.voice, 1500), 1000);
  EXPECT_EQ(mixer.positionHeard(deck.voice, 1400), 1000) << "a position never falls";
  EXPECT_EQ(mixer.positionHeard(deck.voice, 4500), 4000);
}

TEST(DeckMixer, EndsASongShorterThanToldAtItsToldEnd) {
  DeckMixer mixer;
  auto feed = std::make_shared<DeckFeed>();
  feed->queue.commit(100);
  feed->queue.finish();
  const auto voice = std::make_shared<DeckVoice>(feed, 5000);
  mixer.add(voice);
  mixer.run(voice);
  mixed(mixer, 500);
  EXPECT_FALSE(mixer.active());
  EXPECT_EQ(mixer.positionHeard(voice, 500), 5000);
}

TEST(DeckMixer, CountsALateDecoderOnceForEachGap) {
  DeckMixer mixer;
  auto feed = std::make_shared<DeckFeed>();
  const auto voice = std::make_shared<DeckVoice>(feed, 5000);
  mixer.add(voice);
  mixer.run(voice);
  EXPECT_TRUE(mixer.active());
  mixed(mixer, 100);
  mixed(mixer, 100);
  EXPECT_EQ(mixer.starvations(), 1U);
  EXPECT_EQ(mixer.positionHeard(voice, 200), 0) << "waiting is not playing";
}

// The golden mix was computed by another program, make_golden_mix.py, from the rules alone.
TEST(DeckMixer, MixesAsTheGoldenMixDoes) {
  DeckMixer mixer;
  std::vector<Frame> frames(3000);
  for (std::size_t i = 0; i < frames.size(); ++i) {
    frames[i].left = 0.9F * std::sin(static_cast<float>(i) * 0.05F);
    frames[i].right = 0.9F * std::cos(static_cast<float>(i) * 0.031F);
  }
  Deck old(mixer, frames);
  Deck next(mixer, frames);
  mixer.run(old.voice);
  std::vector<Frame> out = mixed(mixer, 700);
  const auto go = [&](std::size_t count) {
    const auto more = mixed(mixer, count);
    out.insert(out.end(), more.begin(), more.end());
  };
  mixer.setGain(next.voice, gainOfVolume(-500));
  mixer.run(next.voice);
  go(500);
  mixer.setGain(old.voice, gainOfVolume(-980));
  go(900);
  mixer.halt(next.voice);
  go(300);
  mixer.run(next.voice);
  mixer.remove(old.voice);
  go(900);

  expectGoldenMix(out);
}

TEST(GainOfVolume, FollowsTheDecibelsAndIsSilentAtTheBottom) {
  EXPECT_EQ(gainOfVolume(0), 1);
  EXPECT_NEAR(gainOfVolume(-2000), 0.1, 1e-6);
  EXPECT_NEAR(gainOfVolume(-5000), 0.0031623, 1e-6);
  EXPECT_GT(gainOfVolume(-9999), 0);
  EXPECT_EQ(gainOfVolume(-10000), 0);
}

}  // namespace
}  // namespace nerolith::sound
