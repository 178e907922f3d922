// A line of text that can be edited or only shown.
#pragma once

#include <optional>

#include "controls/colour.h"
#include "controls/control.h"

namespace nerolith::controls {

/// Setting another text, by code or by the user, raises change.
class TextBox : public Control {
 public:
  const std::string& text() const { return text_; }
  void setText(std::string text) {
    if (assign(text_, std::move(text))) change.raise();
  }

  /// What the text stands on; nothing: the renderer's own.
  std::optional<Colour> backColour() const { return backColour_; }
  void setBackColour(std::optional<Colour> colour) { assign(backColour_, colour); }

  base::Signal<> change;
  /// A character was typed; 13 is Enter.
  base::Signal<int> keyPress;

 private:
  std::string text_;
  std::optional<Colour> backColour_;
};

}  // namespace nerolith::controls
