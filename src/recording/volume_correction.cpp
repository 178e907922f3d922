#include "recording/volume_correction.h"

#include "base/rounding.h"

namespace nerolith::recording {
namespace {

constexpr std::int32_t kTooLoud = 21000;
/// Above this a song counts as loud until the next fade-out.
constexpr std::int32_t kLoud = 22000;
/// Between these two, both left out, nothing is changed.
constexpr std::int32_t kBandFrom = 20000;
constexpr std::int32_t kBandTo = 22000;
/// Below this a song that was loud is raised by a little more.
constexpr std::int32_t kWellBelow = 19000;
/// From here on down it is a pause, not a quiet passage.
constexpr std::int32_t kPause = 2000;
constexpr std::int32_t kNearSilence = 8000;

/// A mean of one value: how much of the difference counts. It once was smoothed.
constexpr double kSmoothing = 1;

CorrectionState takeLevel(CorrectionState state, std::int32_t peak) {
  const double level = state.adjustLevel - (double{1} * state.adjustLevel - peak) / kSmoothing;
  state.adjustLevel = base::toInt32Clamped(level);
  state.tooLoud = state.adjustLevel >= kTooLoud;
  if (state.adjustLevel > kLoud) state.wasLoud = true;
  if (!state.tooLoud && state.wasLoud) state.quietAfterLoud = true;
  return state;
}

}  // namespace

Assessment assess(CorrectionState before, std::int32_t peak, bool fading) {
  if (fading) before.wasLoud = before.quietAfterLoud = false;
  Assessment now;
  now.state = takeLevel(before, peak);
  const std::int32_t level = now.state.adjustLevel;
  if (level > kTooLoud) now.step = static_cast<float>(2.0 * (level - kTooLoud) / 100.0);
  if (level > kBandFrom && level < kBandTo) {
    now.caption = kCorrectionKept;
    now.goesOn = false;
    return now;
  }
  if (now.state.wasLoud && level > kPause && level < kBandFrom) {
    now.step = level < kWellBelow ? 1.0F : 0.0F;
    now.caption = kCorrectionKept;
  }
  return now;
}

Change correct(const Assessment& level, std::int32_t volume, std::int16_t startVolume) {
  const CorrectionState& state = level.state;
  if (volume > startVolume && state.adjustLevel < kNearSilence)
    return {std::nullopt, kCorrectionIdle};
  if (state.tooLoud) return {base::toInt32Clamped(volume - double{level.step}), kCorrectionLowers};
  const std::int32_t raised = base::toInt32Clamped(volume + double{level.step} / 2 + 1);
  if (state.wasLoud) return {raised, std::nullopt};
  return {raised, kCorrectionRaises};
}

}  // namespace nerolith::recording
