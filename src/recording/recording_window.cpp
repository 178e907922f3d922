#include "recording/recording_window.h"

#include <utility>

#include "base/failure_policy.h"
#include "recording/recording_limits.h"
#include "recording/recording_texts.h"
#include "recording/wave_name.h"
#include "recording/wave_repair.h"

namespace nerolith::recording {

using base::endQuietly;
using base::goOn;

RecordingWindow::RecordingWindow(const RecordingDoors& doors, Playing& playing,
                                 const controls::Form& mainForm, CorrectionState& correction)
    : doors_(doors),
      playing_(playing),
      mainForm_(mainForm),
      correction_(correction),
      unfinished_(doors.settings),
      limits_(form_),
      calibration_(doors.tone),
      fade_(
          form_.fadeWatch, doors.clock, [this] { return playing_.fadeLength(); },
          [this] { fadeIsOver(); }) {
  initialise();
  load();
  bind();
  form_.form.setOwner(mainForm);
  form_.form.setBesideOwner(true);
  form_.form.setResizable(false);
  doors_.windows.add(form_.form);
}

RecordingWindow::~RecordingWindow() {
  close();
  doors_.windows.remove(form_.form);
}

void RecordingWindow::initialise() {
  ready_ = goOn([this] {
    recorder_.reset();
    recorder_ = std::make_unique<recordsound2file>(
        recordsound2file::Doors{doors_.capture, doors_.output, doors_.clock, unfinished_});
    recorder_->StartSoundCapture();
  });
}

void RecordingWindow::load() {
  if (!doors_.readAdjust()) Label4_Click();
}

void RecordingWindow::bind() {
  for (std::size_t i = 0; i < form_.Label2.size(); ++i)
    on(form_.Label2[i].click, [this, i] { Label2_Click(i); });
  on(form_.Label1.click, [this] { Label1_Click(); });
  on(form_.Label4.click, [this] { Label4_Click(); });
  on(form_.Label8.click, [this] { Label4_Click(); });
  on(form_.Label7.click, [this] { Label7_Click(); });
  on(form_.standardCopy.click, [this] { act([this] { saveStandardCopy(); }); });
  on(form_.form.unload, [this] { Label1_Click(); });
  on(form_.Timer1.tick, [this] { Timer1_Timer(); });
  on(form_.Timer2.tick, [this] { Timer2_Timer(); });
}

recordsound2file& RecordingWindow::need() {
  if (!recorder_ || closed_) throw base::Failure("There is no recorder");
  return *recorder_;
}

bool RecordingWindow::recording() const {
  return ready_ && !closed_ && (recordingActive_ || recorder_->writingtofile());
}

bool RecordingWindow::calibrating() const { return form_.Label7.caption() == kStopCalibrate; }

bool RecordingWindow::act(const std::function<void()>& action) {
  if (closed_) return false;
  tell({});
  try {
    action();
    return true;
  } catch (const base::Failure& failure) {
    tell(failure.what());
    return false;
  }
}

void RecordingWindow::tell(std::string text) {
  told_ = std::move(text);
  showTrouble();
}

void RecordingWindow::inform(std::string_view text) {
  doors_.dialogs.showMessage({std::string(text)});
}

void RecordingWindow::open() {
  endQuietly([this] {
    if (!ready_) {
      initialise();
      if (ready_ && !adjustEnabled_) need().StopSoundCapture();
    }
    if (adjustEnabled_) startcapture();
    if (!ready_) {
      form_.form.setVisible(false);
      const std::string text = noRecorderText(doors_.capture.whereToObtain());
      doors_.dialogs.showMessage({text, platform::MessageIcon::Information});
      return;
    }
    recordWindowShown_ = true;
    showState();
    form_.form.setVisible(true);
    form_.form.placeBesideOwner();
    form_.form.bringForward();
  });
}

void RecordingWindow::startcapture() {
  if (!busy()) endQuietly([this] { need().StartSoundCapture(); });
}

void RecordingWindow::Label2_Click(std::size_t index) {
  act([this, index] {
    switch (index) {
      case 0:
        chooseFile();
        break;
      case 1:
        if (!need().writingtofile()) inform(kHowToText);
        break;
      case 2:
        start();
        break;
      case 3:
        fadeOutAndStop();
        break;
      default:
        if (!need().writingtofile()) inform(kVolumeSettingsText);
        break;
    }
  });
}

/// True when there is a file to record to, chosen now.
bool RecordingWindow::chooseFile() {
  if (busy()) return false;  // the file that is being written might be chosen, and deleted
  const auto chosen = doors_.dialogs.saveFile({.title = std::string(kFileQuestionTitle),
                                               .filter = std::string(kFileQuestionFilter),
                                               .fileName = need().filename(),
                                               .askBeforeReplacing = false,
                                               .ending = "wav"});
  cancelled_ = !chosen.has_value();
  if (cancelled_) return false;
  const std::string path = withWaveEnding(*chosen);
  if (doors_.files.fileExists(path)) {
    const platform::Message question{std::string(kOverwriteQuestion), platform::MessageIcon::None,
                                     platform::MessageButtons::YesNo, platform::Answer::No};
    cancelled_ = doors_.dialogs.showMessage(question) != platform::Answer::Yes;
    if (cancelled_) return false;
    // A folder may give up what the file itself is guarded against: it is read-only, or another
    // player records into it.
    need().letGoOfFile();
    doors_.output.reopen(path)->close();
    doors_.files.deleteFile(path);
  }
  need().filename(path);
  form_.chosenFile.setText(path);
  return true;
}

void RecordingWindow::start() {
  if (calibrating()) endCalibration();
  // One that is under way, or fades, is finished first.
  if (busy()) {
    fade_.cancel();
    finishRecording();
  }
  if (need().filename().empty() && !chooseFile() && !cancelled_) return;
  if (std::exchange(cancelled_, false)) {
    if (!need().filename().empty()) tell("The choice of another file was cancelled. Start again?");
    return;
  }
  fade_.cancel();  // of a recording that Exit has ended: the next one is none of its business
  stopPlayer();
  try {
    need().Start_Recording();
  } catch (const base::Failure&) {
    captureAsChosen();
    throw;
  }
  form_.outcome.setCaption({});
  form_.Timer2.setEnabled(true);
  playing_.play();
  recordingActive_ = true;
  showState();
}

void RecordingWindow::fadeOutAndStop() {
  recordingActive_ = false;
  playing_.fadeOutCurrent();
  fade_.begin();
}

void RecordingWindow::fadeIsOver() {
  if (closed_) return;
  stopPlayer();
  finishRecording();
}

void RecordingWindow::stopPlayer() {
  stoppingPlayer_ = true;
  goOn([this] { playing_.stop(); });
  stoppingPlayer_ = false;
}

void RecordingWindow::playerStopped() {
  if (stoppingPlayer_ || closed_) return;
  fade_.cancel();
  finishRecording();
}

/// Each step is tried: a recording must not stay half stopped.
void RecordingWindow::finishRecording() {
  recordingActive_ = false;
  const bool begun = busy();
  // What has arrived since the last tick.
  if (begun) goOn([this] { need().timer_Event500ms(); });
  const bool written = recorder_ && recorder_->writingtofile();
  goOn([this] { need().Stop_Recording(); });
  form_.Timer2.setEnabled(false);
  captureAsChosen();
  if (begun) showOutcome(written);
  showState();
}

void RecordingWindow::captureAsChosen() {
  goOn([this] {
    if (adjustEnabled_)
      need().StartSoundCapture();
    else
      need().StopSoundCapture();
  });
}

void RecordingWindow::Label4_Click() {
  act([this] {
    adjustEnabled_ = !adjustEnabled_;
    form_.Label8.setCaption(adjustEnabled_ ? "enabled" : "disabled");
    if (adjustEnabled_) correction_.adjustLevel = 0;
    // A recording keeps its capture; what was chosen counts when it ends.
    if (!busy() && adjustEnabled_) need().StartSoundCapture();
    if (!busy() && !adjustEnabled_ && recorder_) need().StopSoundCapture();
    doors_.writeAdjust(adjustEnabled_);
  });
}

void RecordingWindow::Label7_Click() {
  if (calibrating())
    act([this] { endCalibration(); });
  else if (!act([this] { beginCalibration(); }))
    goOn([this] { endCalibration(); });
}

void RecordingWindow::beginCalibration() {
  form_.Label7.setCaption(std::string(kStopCalibrate));
  stopPlayer();
  inform(kCalibrationText);
  if (closed_ || !calibrating()) return;
  calibration_.prepare();
  need().StartSoundCapture();
  calibration_.play();
}

void RecordingWindow::endCalibration() {
  form_.Label7.setCaption(std::string(kCalibrate));
  calibration_.stop();
  if (!adjustEnabled_) need().StopSoundCapture();
}

/// Of a long recording this takes a while, in which the player plays on.
void RecordingWindow::saveStandardCopy() {
  const std::string from = need().finishedFile();
  const auto to = doors_.dialogs.saveFile({.title = std::string(kStandardCopyTitle),
                                           .filter = std::string(kFileQuestionFilter),
                                           .fileName = standardCopyName(from)});
  if (!to || closed_) return;
  form_.standardCopy.setEnabled(false);
  form_.outcome.setCaption("Copying ...");
  const bool copied = act([&] {
    writeStandardCopy(doors_.bytes, doors_.output, from, withWaveEnding(*to), [this] {
      if (closed_) throw base::Failure("The program ended");
      doors_.events.runWaitingEvents();
    });
  });
  form_.standardCopy.setEnabled(true);
  form_.outcome.setCaption(copied ? "Copied" : "Not copied");
}

void RecordingWindow::Label1_Click() {
  if (closed_) return;
  recordWindowShown_ = false;
  form_.form.setVisible(false);
  if (busy()) finishRecording();
  if (calibrating()) goOn([this] { endCalibration(); });
}

void RecordingWindow::close() {
  if (closed_) return;
  fade_.cancel();
  calibration_.stop();
  if (busy()) finishRecording();
  closed_ = true;
  for (controls::Timer* timer : form_.form.timers()) timer->setEnabled(false);
  form_.form.setVisible(false);
  recorder_.reset();
}

}  // namespace nerolith::recording
