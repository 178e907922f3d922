#include "controls/buttons.h"

namespace nerolith::controls {

void OptionButton::setValue(bool value) {
  if (!assign(value_, value) || !value) return;
  for (OptionButton* other : others_) other->setValue(false);
  click.raise();
}

void OptionButton::group(const std::vector<OptionButton*>& buttons) {
  for (OptionButton* button : buttons) {
    button->others_.clear();
    for (OptionButton* other : buttons)
      if (other != button) button->others_.push_back(other);
  }
}

}  // namespace nerolith::controls
