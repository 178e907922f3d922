// What the recording section's window shows, ten times a second.
#include "base/failure_policy.h"
#include "recording/peak_meter.h"
#include "recording/recording_limits.h"
#include "recording/recording_window.h"

namespace nerolith::recording {

void RecordingWindow::Timer1_Timer() {
  base::endQuietly([this] {
    if (closed_) return;
    if (recordWindowShown_) form_.form.setVisible(mainForm_.visible());
    need().probesound();
    showLevel(need().Peaklevel());
    showState();
    showTrouble();
    if (recordingActive_) watchLimit();
  });
}

void RecordingWindow::Timer2_Timer() {
  base::endQuietly([this] {
    need().timer_Event500ms();
    if (!need().endedByTrouble()) return;
    // The file is finished as far as it came; the player plays on.
    recordingActive_ = false;
    form_.Timer2.setEnabled(false);
    captureAsChosen();
    showOutcome(need().Filesize() > 0);
  });
}

void RecordingWindow::showLevel(std::int32_t peak) {
  form_.ProgressBar1.setValue(meterPercent(peak));
  form_.Label5.setBackColour(indicatorColour(peak));
}

void RecordingWindow::showState() {
  form_.Label7.setVisible(!busy());
  form_.Label3.setCaption(busy() ? fileSizeText(need().Filesize()) : std::string());
  form_.Label3.setVisible(!form_.Label7.visible());
  limits_.showArmed(recordingActive_);
  form_.Label2[0].setEnabled(!busy());
  form_.Label2[2].setEnabled(!busy());
  form_.standardCopy.setVisible(!busy() && recorder_ && !recorder_->finishedFile().empty());
}

void RecordingWindow::showTrouble() {
  const std::string trouble = recorder_ ? recorder_->trouble() : std::string();
  form_.notice.setCaption(trouble.empty() ? told_ : trouble);
}

void RecordingWindow::watchLimit() {
  if (!limits_.reached(playing_.fadeLength(), need().Filesize())) return;
  showLevel(0);
  Label2_Click(3);
}

/// A recording that lost sound says so, now that it can be made again.
void RecordingWindow::showOutcome(bool written) {
  if (!written) {
    form_.outcome.setCaption({});
    tell("Nothing was recorded: the first sound is written after two seconds");
    return;
  }
  form_.outcome.setCaption("Recorded " + sizeText(need().Filesize()));
  const std::int32_t missed = need().missedHalves();
  if (missed == 0) return;
  tell("The machine was too busy: " + std::to_string(2 * missed) + " seconds of sound are missing");
}

}  // namespace nerolith::recording
