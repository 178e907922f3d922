// A bar that fills from the left.
#pragma once

#include <vector>

#include "controls/colour.h"
#include "controls/control.h"

namespace nerolith::controls {

/// 0..100 percent, a real number. Setting it raises no event.
class ProgressBar : public Control {
 public:
  float value() const { return value_; }
  void setValue(float percent) { assign(value_, percent); }

  /// The colour of a piece of the bar, from this percentage on to where the next one begins.
  struct Zone {
    float from = 0;
    Colour colour = kGreen;
    bool operator==(const Zone&) const = default;
  };
  /// In rising order; empty: the renderer's own colours. For a bar with the look of a meter.
  const std::vector<Zone>& zones() const { return zones_; }
  void setZones(std::vector<Zone> zones) { assign(zones_, std::move(zones)); }
  Colour colourAt(float percent) const {
    Colour colour = zones_.empty() ? kGreen : zones_.front().colour;
    for (const Zone& zone : zones_)
      if (percent >= zone.from) colour = zone.colour;
    return colour;
  }

 private:
  float value_ = 0;
  std::vector<Zone> zones_;
};

}  // namespace nerolith::controls
