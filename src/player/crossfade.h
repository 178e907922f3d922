// The arithmetic of the mix: values in, a plan out.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>

#include "base/rounding.h"

namespace nerolith::player {

/// A fading deck is released when its volume has passed this, in hundredths of a decibel.
inline constexpr std::int32_t kReleaseLevel = -5000;

/// How far one tick lowers a fading deck: ten ticks a second, and one more so that the divisor
/// never is zero. A length below 0, which only a damaged setting can be, counts as 0.
inline double fadeStep(float fadeSteps) {
  return 5000.0 / (std::max(0.0, double{fadeSteps}) * 10.0 + 1.0);
}

/// The next volume of a fading deck. Rounding loses the fraction of every step, which is why a fade
/// takes one tick more than its length says.
inline std::int32_t fadedVolume(std::int32_t volume, float fadeSteps) {
  return base::toInt32Clamped(volume - fadeStep(fadeSteps));
}

inline bool fadeIsOver(std::int32_t volume) { return volume < kReleaseLevel; }

/// What the mix trigger looks at, for one deck. Seconds.
struct MixMoment {
  double position = 0;
  double duration = 0;
  /// How long before the end the next song starts; 0 in Single mode.
  double lead = 0;
  bool fading = false;
  /// The user's own start is under way, or nothing was started since Stop.
  bool manualStart = false;
};

/// Whether the song has come to its mix point.
inline bool mixIsDue(const MixMoment& at) {
  return at.position > 0 && at.position + at.lead >= at.duration && !at.fading && !at.manualStart;
}

/// Seconds shown: the slider's value, or what it leaves of the song (to its real end, in every
/// mode).
inline float displayTime(bool elapsed, double duration, int sliderValue) {
  return static_cast<float>(elapsed ? sliderValue : duration - sliderValue);
}

/// "mm:ss", each of at least two digits; "00:00" for 0 or less.
std::string timeText(float seconds);

/// "m:ss", as in "mix in 1:05"; fractions count as a whole second. 0 or less gives "0:00".
std::string countdownText(double seconds);

/// A length in seconds as an end of the position slider, which is a 16-bit number.
inline std::int16_t sliderEnd(double seconds) { return base::toInt16Clamped(seconds); }

/// Step of the slider's keys and track for a range that ends at `max`.
inline std::int16_t sliderStep(std::int16_t max) { return base::toInt16Clamped(max / 25.0 + 1.0); }

/// 0..100 of a deck's level bar: -5000 and below is 0.
float levelPercent(std::int32_t volume);

}  // namespace nerolith::player
