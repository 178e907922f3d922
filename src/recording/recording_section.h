// The recording section, as the player and the program know it.
#pragma once

#include <memory>
#include <optional>

#include "player/recording_link.h"
#include "recording/recording_window.h"

namespace nerolith::recording {

/// The window is made when it is first needed: on the first tick of the main timer when the volume
/// is to be adjusted, else when it is opened. Until then no sound is captured.
class RecordingSection final : public player::RecordingLink {
 public:
  RecordingSection(RecordingDoors doors, Playing& playing, const controls::Form& mainForm);

  bool adjustEnabled() const override;
  bool recording() const override { return window_ && window_->recording(); }
  void placeBesideMainWindow() override;
  void volumeCorrectionStep() override;
  void stopRecording() override;
  void stopAfterLastSong() override;

  /// The menu's "Recording section".
  void open();
  /// Asks whether a recording that the last run could not finish is to be repaired, if there is
  /// one. Waits for the answer. Asked once, whatever it is; put off while the file cannot be
  /// written. One that was repaired since is not asked for.
  void offerRepair();
  /// The program ends: a recording is finished, nothing happens here any more.
  void close();
  /// `close`, and the window is gone. Not from within one of its own events.
  void end();

  /// Made by this call where it was not yet.
  RecordingWindow& window();

 private:
  void correctVolume();
  bool canBeRepaired(const std::string& path) const;
  bool wasRepaired(const std::string& path) const;

  RecordingDoors doors_;
  Playing& playing_;
  const controls::Form& mainForm_;
  CorrectionState correction_;
  mutable std::optional<bool> storedAdjust_;
  std::unique_ptr<RecordingWindow> window_;
  bool closed_ = false;
};

}  // namespace nerolith::recording
