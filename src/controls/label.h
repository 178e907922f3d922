// A text, a lamp, or a spot of the skin that can be clicked.
#pragma once

#include "controls/colour.h"
#include "controls/control.h"

namespace nerolith::controls {

/// Setting any property from code raises no event.
class Label : public Control {
 public:
  const std::string& caption() const { return caption_; }
  void setCaption(std::string caption) { assign(caption_, std::move(caption)); }

  Colour foreColour() const { return foreColour_; }
  void setForeColour(Colour colour) { assign(foreColour_, colour); }

  Colour backColour() const { return backColour_; }
  void setBackColour(Colour colour) { assign(backColour_, colour); }

  /// Raised by the user's click, after mouseDown and mouseUp.
  base::Signal<> click;

  void userClick() {
    if (enabled()) click.raise();
  }

 private:
  std::string caption_;
  Colour foreColour_ = 0xFFFFFF;
  Colour backColour_ = kGrey;
};

}  // namespace nerolith::controls
