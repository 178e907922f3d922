#include "recording/volume_correction.h"

#include <gtest/gtest.h>

#include <vector>

namespace nerolith::recording {
namespace {

constexpr std::int16_t kStart = -500;

/// One whole step on a deck at `volume`: what it is set to and what the caption becomes.
struct Outcome {
  std::optional<std::int32_t> volume;
  std::string_view caption = "unchanged";

  bool operator==(const Outcome&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Outcome& o) {
  return out << (o.volume ? std::to_string(*o.volume) : "kept") << " '" << o.caption << "'";
}

Outcome stepOnce(CorrectionState& state, std::int32_t level, std::int32_t volume = kStart,
                 bool fading = false) {
  Outcome outcome;
  const Assessment assessed = assess(state, level, fading);
  state = assessed.state;
  if (assessed.caption) outcome.caption = *assessed.caption;
  if (!assessed.goesOn) return outcome;
  const Change change = correct(assessed, volume, kStart);
  outcome.volume = change.volume;
  if (change.caption) outcome.caption = *change.caption;
  return outcome;
}

Outcome freshStep(std::int32_t level, std::int32_t volume = kStart) {
  CorrectionState state;
  return stepOnce(state, level, volume);
}

Outcome stepAfterLoud(std::int32_t level, std::int32_t volume = kStart) {
  CorrectionState state{.wasLoud = true};
  return stepOnce(state, level, volume);
}

TEST(VolumeCorrection, LevelsOfASongThatWasNeverLoud) {
  struct Row {
    std::int32_t level;
    Outcome outcome;
  };
  const std::vector<Row> table = {
      {0, {-494, kCorrectionRaises}},     {1, {-494, kCorrectionRaises}},
      {2000, {-494, kCorrectionRaises}},  {2001, {-494, kCorrectionRaises}},
      {7999, {-494, kCorrectionRaises}},  {8000, {-494, kCorrectionRaises}},
      {18999, {-494, kCorrectionRaises}}, {19000, {-494, kCorrectionRaises}},
      {19999, {-494, kCorrectionRaises}}, {20000, {-494, kCorrectionRaises}},
      {20001, {{}, kCorrectionKept}},     {20999, {{}, kCorrectionKept}},
      {21000, {{}, kCorrectionKept}},     {21001, {{}, kCorrectionKept}},
      {21999, {{}, kCorrectionKept}},     {22000, {-520, kCorrectionLowers}},
      {22001, {-520, kCorrectionLowers}}, {22025, {-520, kCorrectionLowers}},
      {22026, {-521, kCorrectionLowers}}, {26000, {-600, kCorrectionLowers}},
      {32767, {-735, kCorrectionLowers}},
  };
  for (const Row& row : table) EXPECT_EQ(freshStep(row.level), row.outcome) << row.level;
}

TEST(VolumeCorrection, LevelsOfASongThatWasLoudOnce) {
  struct Row {
    std::int32_t level;
    Outcome outcome;
  };
  const std::vector<Row> table = {
      {0, {-494, kCorrectionRaises}},     {2000, {-494, kCorrectionRaises}},
      {2001, {-498, kCorrectionKept}},    {18999, {-498, kCorrectionKept}},
      {19000, {-499, kCorrectionKept}},   {19999, {-499, kCorrectionKept}},
      {20000, {-494, kCorrectionRaises}}, {20001, {{}, kCorrectionKept}},
      {21999, {{}, kCorrectionKept}},     {22000, {-520, kCorrectionLowers}},
  };
  for (Row row : table) {
    // Outside the band where it is raised slowly the caption stays as it was.
    if (row.outcome.caption == kCorrectionRaises) row.outcome.caption = "unchanged";
    EXPECT_EQ(stepAfterLoud(row.level), row.outcome) << row.level;
  }
}

TEST(VolumeCorrection, HalvesAreRoundedToTheEvenVolume) {
  EXPECT_EQ(stepAfterLoud(10000, -600).volume, -598);  // -598.5
  EXPECT_EQ(stepAfterLoud(10000, -601).volume, -600);  // -599.5
  EXPECT_EQ(freshStep(22025, -500).volume, -520);      // -520.5
  EXPECT_EQ(freshStep(22025, -501).volume, -522);      // -521.5
}

TEST(VolumeCorrection, Level21000CountsAsTooLoudAndChangesNothing) {
  CorrectionState state;
  EXPECT_EQ(stepOnce(state, 21000), (Outcome{{}, kCorrectionKept}));
  EXPECT_TRUE(state.tooLoud);
  EXPECT_FALSE(state.wasLoud);
}

TEST(VolumeCorrection, Level22000LowersBy20AndIsNotRememberedAsLoud) {
  CorrectionState state;
  EXPECT_EQ(stepOnce(state, 22000, -100), (Outcome{-120, kCorrectionLowers}));
  EXPECT_FALSE(state.wasLoud);
  EXPECT_EQ(stepOnce(state, 22001, -120).volume, -140);
  EXPECT_TRUE(state.wasLoud);
}

TEST(VolumeCorrection, Level20000RisesBy6WhetherOrNotTheSongWasLoud) {
  EXPECT_EQ(freshStep(20000).volume, -494);
  EXPECT_EQ(stepAfterLoud(20000).volume, -494);
}

TEST(VolumeCorrection, TheLatchesRememberLoudAndThenQuiet) {
  CorrectionState state;
  stepOnce(state, 15000);
  EXPECT_EQ(state, (CorrectionState{.adjustLevel = 15000}));
  stepOnce(state, 25000);
  EXPECT_EQ(state, (CorrectionState{.adjustLevel = 25000, .tooLoud = true, .wasLoud = true}));
  stepOnce(state, 21000);
  EXPECT_FALSE(state.quietAfterLoud);
  stepOnce(state, 20999);
  EXPECT_EQ(state,
            (CorrectionState{.adjustLevel = 20999, .wasLoud = true, .quietAfterLoud = true}));
  stepOnce(state, 15000);
  EXPECT_TRUE(state.wasLoud && state.quietAfterLoud);
}

TEST(VolumeCorrection, AFadingDeckClearsBothLatchesAndALoudLevelSetsItAgain) {
  CorrectionState state{.wasLoud = true, .quietAfterLoud = true};
  stepOnce(state, 15000, kStart, true);
  EXPECT_FALSE(state.wasLoud || state.quietAfterLoud);
  stepOnce(state, 23000, kStart, true);
  EXPECT_TRUE(state.wasLoud);
}

TEST(VolumeCorrection, NearSilenceRaisesNoFurtherThanTheStartVolume) {
  EXPECT_EQ(freshStep(7999, kStart).volume, -494);
  EXPECT_EQ(freshStep(7999, kStart + 1), (Outcome{{}, kCorrectionIdle}));
  EXPECT_EQ(freshStep(8000, kStart + 1).volume, -493);
  EXPECT_EQ(freshStep(0, 0), (Outcome{{}, kCorrectionIdle}));
}

TEST(VolumeCorrection, VolumesBeyondTheDecksRangeAreLeftToTheDeckToRefuse) {
  EXPECT_EQ(freshStep(10000, 0).volume, 6);
  EXPECT_EQ(freshStep(32000, -9900).volume, -10120);
}

}  // namespace
}  // namespace nerolith::recording
