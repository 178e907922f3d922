#include "recording/recording_section.h"

#include <utility>

#include "base/failure_policy.h"
#include "recording/recording_texts.h"
#include "recording/wave_repair.h"

namespace nerolith::recording {

RecordingSection::RecordingSection(RecordingDoors doors, Playing& playing,
                                   const controls::Form& mainForm)
    : doors_(std::move(doors)), playing_(playing), mainForm_(mainForm) {}

RecordingWindow& RecordingSection::window() {
  if (!window_)
    window_ = std::make_unique<RecordingWindow>(doors_, playing_, mainForm_, correction_);
  return *window_;
}

bool RecordingSection::adjustEnabled() const {
  if (window_) return window_->adjustEnabled();
  if (!storedAdjust_) storedAdjust_ = doors_.readAdjust();
  return *storedAdjust_;
}

void RecordingSection::placeBesideMainWindow() {
  if (window_ && window_->recordWindowShown()) window_->form().form.placeBesideOwner();
}

void RecordingSection::volumeCorrectionStep() {
  if (closed_ || (!window_ && !adjustEnabled())) return;
  base::endQuietly([this] { correctVolume(); });
}

void RecordingSection::correctVolume() {
  controls::Label& caption = window().form().Label4;
  if (!window().ready()) return caption.setCaption(std::string(kCorrectionError));
  if (!window().adjustEnabled()) return caption.setCaption(std::string(kCorrectionIdle));
  const Assessment level = assess(correction_, window().peakLevel(), playing_.anyFades());
  correction_ = level.state;
  if (level.caption) caption.setCaption(std::string(*level.caption));
  if (!level.goesOn || playing_.currentFades()) return;
  const Change change = correct(level, playing_.volume(), playing_.startVolume());
  if (change.volume) playing_.setVolume(*change.volume);
  if (change.caption) caption.setCaption(std::string(*change.caption));
}

void RecordingSection::open() {
  if (closed_) return;
  // What the ticks of the player would have said meanwhile, had there been a window.
  if (!window_ && !adjustEnabled()) {
    window();
    volumeCorrectionStep();
  }
  window().open();
}

void RecordingSection::stopRecording() {
  if (window_) window_->playerStopped();
}

void RecordingSection::stopAfterLastSong() {
  if (recording()) window_->Label2_Click(3);
}

// A second player's recording is under way, and no ruin; a disk that is not there may come back.
bool RecordingSection::canBeRepaired(const std::string& path) const {
  return base::goOn([&] { doors_.output.reopen(path)->close(); });
}

bool RecordingSection::wasRepaired(const std::string& path) const {
  bool whole = false;
  base::goOn([&] { whole = isFinished(doors_.bytes, path); });
  return whole;
}

void RecordingSection::offerRepair() {
  UnfinishedRecording unfinished(doors_.settings);
  const std::string path = unfinished.path();
  if (path.empty() || !canBeRepaired(path)) return;
  unfinished.forget();
  if (wasRepaired(path)) return;
  const platform::Message question{unfinishedText(path), platform::MessageIcon::Information,
                                   platform::MessageButtons::YesNo, platform::Answer::Yes};
  if (doors_.dialogs.showMessage(question) != platform::Answer::Yes) return;
  try {
    repairRecording(doors_.bytes, doors_.output, path);
  } catch (const base::Failure& failure) {
    doors_.dialogs.showMessage({failure.what(), platform::MessageIcon::Critical});
  }
}

void RecordingSection::close() {
  closed_ = true;
  if (window_) window_->close();
}

void RecordingSection::end() {
  close();
  window_.reset();
}

}  // namespace nerolith::recording
