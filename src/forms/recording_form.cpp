#include "forms/recording_form.h"

namespace nerolith::forms {
namespace {

using controls::Box;
using controls::column;
using controls::leaf;
using controls::Look;
using controls::row;
using controls::space;
using controls::words;

constexpr int kKeyHeight = 32;

/// The caption's gap is the place of its box: the words before it, the box, the words behind it.
Box aroundBox(const controls::Label& caption, controls::TextBox& box) {
  const std::string& text = caption.caption();
  const std::size_t gap = text.find("  ");
  const std::size_t behind = text.find_first_not_of(' ', gap);
  return row({words(text.substr(0, gap)), leaf(&box).sized(64, 28), words(text.substr(behind))})
      .spaced(7, 0);
}

Box key(controls::Label& label) { return leaf(&label, Look::Key).sized(0, kKeyHeight); }

/// The meter's width is the window's, whatever else is shown at the moment.
Box meter(RecordingForm& f) {
  return row({leaf(&f.Label5, Look::Lamp), leaf(&f.ProgressBar1, Look::Meter).sized(388, 18)})
      .spaced(10, 0);
}

Box glass(RecordingForm& f) {
  Box correction =
      row({leaf(&f.Label4).sized(128, 0), leaf(&f.Label8, Look::Key).sized(92, 28), space(),
           leaf(&f.Label3, Look::Figure), leaf(&f.Label7, Look::Key).sized(0, 28)});
  return column({meter(f), std::move(correction)}).spaced(12, 14).with(Look::Glass);
}

Box limits(RecordingForm& f) {
  return row({aroundBox(f.Label6[1], f.Text1[0]), space(), aroundBox(f.Label6[0], f.Text1[1])});
}

Box information(RecordingForm& f) {
  return column({leaf(&f.Frame1, Look::Tag), key(f.Label2[1]), key(f.Label2[4])})
      .spaced(8, 12)
      .with(Look::Group);
}

Box foot(RecordingForm& f) {
  return row({leaf(&f.outcome), space(), leaf(&f.standardCopy, Look::Key).sized(0, 28),
              leaf(&f.Label1, Look::Key).sized(92, 28)})
      .spaced(10, 0);
}

void setCaptions(RecordingForm& f) {
  f.form.setCaption("Nerolith recording section");
  f.Label1.setCaption("Exit");
  const std::array<const char*, 5> actions = {
      "Select Filename for Recording", "Record from playlist to selected filename",
      "Start playing and record the sound to the selected file", "Fade out and stop Recording",
      "Information about volumesettings"};
  for (std::size_t i = 0; i < actions.size(); ++i) f.Label2[i].setCaption(actions[i]);
  f.Label3.setCaption("Label3");
  f.Label4.setCaption("Label4");
  f.Label6[0].setCaption("Stop recording at           Min.");
  f.Label6[1].setCaption("Stop recording at           MB");
  f.Label7.setCaption("Calibrate Sound levels");
  f.Label8.setCaption("enabled");
  f.Frame1.setCaption("Info");
  f.standardCopy.setCaption("Standard WAV ...");
}

void setNames(RecordingForm& f) {
  f.Label5.setAccessibleName("Peak indicator");
  f.Label8.setAccessibleName("Volume adjust");
  f.ProgressBar1.setAccessibleName("Peak level");
  f.Text1[0].setAccessibleName("Stop recording at MB");
  f.Text1[1].setAccessibleName("Stop recording at Min.");
  f.chosenFile.setAccessibleName("File to record to");
  f.notice.setAccessibleName("Trouble with the recording");
  f.outcome.setAccessibleName("Outcome of the recording");
  f.Label8.setToolTip("Switches the automatic volume correction");
  f.standardCopy.setToolTip(
      "Writes a copy that programs which are strict about WAV files can read");
}

}  // namespace

RecordingForm::RecordingForm() {
  setCaptions(*this);
  setNames(*this);
  Label3.setVisible(false);
  standardCopy.setVisible(false);
  Label5.setBackColour(49152);
  // The colours of Label5, at the peaks where it changes.
  ProgressBar1.setZones({{0, 49152}, {65.6F, 33023}, {91.5F, 255}});
  for (controls::TextBox& box : Text1) box.setBackColour(kLimitIdle);
  for (controls::Timer* timer : {&Timer1, &Timer2, &fadeWatch}) form.addTimer(*timer);
  form.setVisible(false);
  form.setLayout(column({glass(*this), key(Label2[0]), leaf(&chosenFile, Look::Well).sized(0, 28),
                         key(Label2[2]), key(Label2[3]), limits(*this), information(*this),
                         leaf(&notice, Look::Notice), foot(*this)})
                     .spaced(9, 14));
}

}  // namespace nerolith::forms
