// The settings window, as data.
#pragma once

#include <array>

#include "controls/buttons.h"
#include "controls/form.h"
#include "controls/text_box.h"

namespace nerolith::forms {

/// Controls keep the names that the player's rules know them by. Captions, names for a screen
/// reader and layout are set when it is made; what the controls do is subscribed by the settings.
struct SettingsForm {
  SettingsForm();
  SettingsForm(const SettingsForm&) = delete;
  SettingsForm& operator=(const SettingsForm&) = delete;

  controls::Form form;

  controls::TextBox Text3;                                   // mix length, seconds
  controls::TextBox Text4;                                   // mix lead, seconds
  controls::CheckBox Check1;                                 // recent-file rule on or off
  controls::TextBox Text1;                                   // older songs in a row at most
  controls::TextBox Text2;                                   // days that a file counts as recent
  controls::TextBox Text6, Text7, Text8, Text9, Text10;      // texts of F1 to F5
  controls::TextBox Text11, Text12, Text13, Text14, Text15;  // texts of F6 to F10
  controls::CheckBox Check2;         // removing songs may mark their files for deletion
  controls::CommandButton Command1;  // saves and closes

  /// Text6 to Text15: the boxes of F1 to F10, in this order.
  std::array<controls::TextBox*, 10> keyBoxes();
};

}  // namespace nerolith::forms
