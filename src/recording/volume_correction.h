// The automatic volume correction: one step's arithmetic.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace nerolith::recording {

/// What the correction tells its user: idle or switched off; in the band, or held there; lowering;
/// raising; no recorder.
inline constexpr std::string_view kCorrectionIdle = "Volume adjust";
inline constexpr std::string_view kCorrectionKept = "Volume adjust |";
inline constexpr std::string_view kCorrectionLowers = "Volume adjust <";
inline constexpr std::string_view kCorrectionRaises = "Volume adjust >";
inline constexpr std::string_view kCorrectionError = "Error Volume adjust";

/// What one step leaves for the next.
struct CorrectionState {
  /// The level taken from the recorder last, 0..32767. Switching the adjust on clears it.
  std::int32_t adjustLevel = 0;
  /// The last level was 21000 or more.
  bool tooLoud = false;
  /// The song was above 22000 once: from then on it is raised slowly only. A fade-out ends it.
  bool wasLoud = false;
  /// The song fell below 21000 after it was loud. A fade-out ends it.
  bool quietAfterLoud = false;

  bool operator==(const CorrectionState&) const = default;
};

/// A look at the level.
struct Assessment {
  CorrectionState state;
  /// Nothing: the caption stays as it is.
  std::optional<std::string_view> caption;
  /// Whether the deck's volume is to be looked at.
  bool goesOn = true;
  /// Hundredths of a decibel that one step is made of.
  float step = 10;
};

/// Levels by themselves, before any deck is asked. `peak` is the recorder's, 0..32767; `fading`:
/// one of the decks fades out.
Assessment assess(CorrectionState before, std::int32_t peak, bool fading);

/// What becomes of the deck's volume, in hundredths of a decibel.
struct Change {
  /// Nothing: the volume stays. May lie outside -10000..0, which the deck refuses.
  std::optional<std::int32_t> volume;
  /// For when the volume was set; nothing: the caption stays as it is.
  std::optional<std::string_view> caption;
};

/// `volume` is what the current deck has, `startVolume` what its song began with.
Change correct(const Assessment& level, std::int32_t volume, std::int16_t startVolume);

}  // namespace nerolith::recording
