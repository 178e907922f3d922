// The large digital time: what a click on it changes.
#pragma once

#include "base/signal.h"
#include "controls/colour.h"
#include "controls/label.h"
#include "settings/live_settings.h"

namespace nerolith::player {

/// The palette number after `number`: 15 is followed by 0.
float nextPaletteNumber(float number);
/// The palette entry of a stored number; one outside 0..15 shows as the nearest entry.
controls::Colour paletteColour(float number);

/// Left press: elapsed instead of remaining time, or back. Right press: the next colour.
class TimeLabel {
 public:
  TimeLabel(controls::Label& label1, settings::LiveSettings& live);

  /// Paints the label in the colour of the settings.
  void showColour();

 private:
  void pressed(controls::MouseButton button);

  controls::Label& label1_;
  settings::LiveSettings& live_;
  base::Subscription subscription_;
};

}  // namespace nerolith::player
