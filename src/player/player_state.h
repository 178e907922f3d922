// What the player's handlers share.
#pragma once

#include <cstdint>
#include <string>

#include "base/flag16.h"

namespace nerolith::player {

/// Lives as long as the main window; nothing of it is saved. User-interface thread only.
struct PlayerState {
  base::Flag16 paused = base::kFalse;
  /// Level that a song starts at, in hundredths of a decibel; recomputed at every start.
  std::int16_t startVolume = 0;
  /// Starts that failed in a row.
  std::int16_t playRetryCount = 0;
  /// Tell a start by the user from one by play-next. While the first is set no mix is triggered.
  base::Flag16 manualStartFirst = base::kFalse;
  base::Flag16 manualStartSecond = base::kFalse;

  /// The user holds the thumb of the position slider; the timer leaves it alone.
  base::Flag16 sliderDragging = base::kFalse;
  /// The timer is not moving the thumb: a change of the slider is the user's.
  base::Flag16 sliderIdle = base::kTrue;

  /// Working copy of the fade length, in seconds.
  float fadeSteps = 0;
  /// Random picks since the last recent file.
  std::int16_t recentCount = 0;
  /// The selected position when Single mode was chosen.
  float rememberedRandomIndex = -1;
  /// The selected position at the last tick.
  float rememberedListIndex = -1;

  /// Path of the song that was started last.
  std::string songPath;
  /// "mm:ss", and the seconds that it shows.
  std::string timeString = "00:00";
  float displayTime = 0;
};

}  // namespace nerolith::player
