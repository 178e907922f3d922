// What the player asks of the recording section.
#pragma once

namespace nerolith::player {

/// Called on the user-interface thread, mostly from within a tick of the main timer: what takes
/// time (a fade that is waited for) has to be posted, or the fade steps stand still meanwhile.
/// A failure counts as one of the failing step of the caller.
class RecordingLink {
 public:
  virtual ~RecordingLink() = default;

  /// The automatic volume correction is on: songs start at -500 to leave it head-room.
  virtual bool adjustEnabled() const = 0;
  /// The recorder is writing a file.
  virtual bool recording() const = 0;

  /// Every tick: keeps the recording window at its place beside the main window.
  virtual void placeBesideMainWindow() = 0;
  /// Every tick: one step of the automatic volume correction.
  virtual void volumeCorrectionStep() = 0;

  /// Stop was pressed while recording: ends the recording at once.
  virtual void stopRecording() = 0;
  /// The songs ran out while recording: the recording window fades out and stops.
  virtual void stopAfterLastSong() = 0;
};

/// A player without a recording section: nothing is corrected, nothing records.
class NoRecording final : public RecordingLink {
 public:
  bool adjustEnabled() const override { return false; }
  bool recording() const override { return false; }
  void placeBesideMainWindow() override {}
  void volumeCorrectionStep() override {}
  void stopRecording() override {}
  void stopAfterLastSong() override {}
};

}  // namespace nerolith::player
