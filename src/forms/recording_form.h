// The recording section's window, as data.
#pragma once

#include <array>

#include "controls/form.h"
#include "controls/label.h"
#include "controls/progress_bar.h"
#include "controls/text_box.h"
#include "controls/timer.h"

namespace nerolith::forms {

/// Controls keep the names that the player's rules know them by. Captions, tooltips and layout are
/// set when it is made; what they do is subscribed by the recording section.
struct RecordingForm {
  RecordingForm();
  RecordingForm(const RecordingForm&) = delete;
  RecordingForm& operator=(const RecordingForm&) = delete;

  controls::Form form;

  controls::Label Label1;  // Exit
  std::array<controls::Label, 5>
      Label2;              // file, how-to text, start, fade out and stop, volume text
  controls::Label Label3;  // size of the file while recording, in Label7's place
  controls::Label Label4;  // what the volume correction does; toggles it
  controls::Label Label5;  // indicator of the peak level
  std::array<controls::Label, 2> Label6;   // words around the limits: minutes, megabytes
  controls::Label Label7;                  // calibration on, off
  controls::Label Label8;                  // volume adjust "enabled", "disabled"
  std::array<controls::TextBox, 2> Text1;  // limits: megabytes, minutes
  controls::ProgressBar ProgressBar1;      // peak meter
  controls::Label Frame1;                  // word over the information

  controls::TextBox chosenFile;  // where the recording goes, shown only
  controls::Label notice;        // what is wrong with the recording, if anything is
  controls::Label outcome;       // what became of the last recording
  controls::Label standardCopy;  // writes a strictly standard copy of the last recording

  controls::Timer Timer1{std::chrono::milliseconds(100)};           // meter, display, limit
  controls::Timer Timer2{std::chrono::milliseconds(500), false};    // sound into the file
  controls::Timer fadeWatch{std::chrono::milliseconds(20), false};  // looks for the end of a fade
};

inline constexpr controls::Colour kLimitArmed = 153;
inline constexpr controls::Colour kLimitIdle = 4210752;

}  // namespace nerolith::forms
