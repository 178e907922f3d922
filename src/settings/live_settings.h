// The settings' values while the program runs.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "base/flag16.h"

namespace nerolith::settings {

/// Read from the store at start-up, changed by the windows as the user works, written back at the
/// moments that each key has. The values before anything was read stand here.
struct LiveSettings {
  /// "1" Single, "2" Auto next, "3" Random (key "setting").
  std::string modeCode = "1";
  /// Index into the basic palette for the time display (key "color"); a real number by tradition.
  float colour = 2;
  /// Elapsed instead of remaining time is shown (key "ti").
  base::Flag16 timeInverted = base::kFalse;
  /// Mirrors the loop check box (key "lo").
  base::Flag16 loop = base::kFalse;
  /// Seconds before a song's end at which the next one starts (key "fadem").
  float mixLead = 10;
  /// Nominal seconds that the old song takes to fade away (key "fadelen").
  float fadeLength = 3;
  /// Texts of the fast keys F1..F10 (keys "key0".."key9").
  std::array<std::string, 10> keyTexts{};
  /// The recent-file rule: on or off, how many older songs between two recent ones at most, and how
  /// many days make a file recent (keys "enabl", "frmaant", "frmday").
  base::Flag16 recentRule = base::kFalse;
  std::int16_t recentAfter = 5;
  std::int16_t recentDays = 30;
};

}  // namespace nerolith::settings
