// Captures what the machine plays into a WAV file, and measures its level.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/output_file.h"
#include "platform/sound_capture.h"
#include "recording/half_count.h"
#include "recording/unfinished_recording.h"
#include "recording/wave_header.h"

namespace nerolith::recording {

/// The recorder, under the name that the recording window knows it by.
///
/// Lifecycle: made -> StartSoundCapture (metering) -> any number of `probesound` -> `filename` ->
/// Start_Recording -> `timer_Event500ms` each 500 ms, `probesound` each 100 ms -> Stop_Recording
/// (the file is finished, metering goes on). User-interface thread only; it has no timer and no
/// thread of its own: the owner calls.
///
/// Sound arrives in a looping buffer of four seconds, and goes into the file half by half. After
/// every piece the file holds one more sample, a zero, that its header does not count: players
/// mind this as little as the click-free shift of left and right that it makes, and
/// `writeStandardCopy` takes it out for programs that do mind.
///
/// A tick that sees the buffer's first half begin writes the second one and the other way round;
/// so call `timer_Event500ms` once more just before `Stop_Recording`, or what arrived since the
/// last tick is flushed as if the half had not changed.
///
/// Operations fail as their doors do, unless said otherwise.
class recordsound2file {
 public:
  struct Doors {
    platform::SoundCapture& capture;
    platform::OutputFiles& files;
    const platform::Clock& clock;
    UnfinishedRecording& unfinished;
  };

  /// Opens the devices; fails when there are none.
  explicit recordsound2file(const Doors& doors);
  /// Finishes a recording under way; failures pass.
  ~recordsound2file();
  recordsound2file(const recordsound2file&) = delete;
  recordsound2file& operator=(const recordsound2file&) = delete;

  /// Begins a recording into `filename`; a file of that name is deleted without asking. On failure
  /// nothing records.
  void Start_Recording();
  /// Finishes the file, then starts capturing anew for the meter; only the latter can fail. Before
  /// the first half was written the file is left with its 44 bytes, open until the next start.
  void Stop_Recording();
  /// The WAV file's path; empty once its recording is finished.
  const std::string& filename() const { return fileName_; }
  void filename(std::string path) { fileName_ = std::move(path); }
  /// Moves a half that was completed since the last call into the file. Never fails: see `trouble`.
  void timer_Event500ms();
  /// Sample bytes counted as written; stays after the stop.
  std::int32_t Filesize() const { return dataBytes_; }
  /// 0..32767 as left by the last `probesound`.
  std::int32_t Peaklevel() const { return peak_; }
  /// Always 0; nothing may rely on it.
  std::int32_t Avaragelevel() const { return average_; }
  /// From the first half in the file until the file is finished.
  bool writingtofile() const { return writing_; }
  /// Measures what was captured since the last call. Never fails: the level is 0 then.
  void probesound();
  /// Makes the capture buffer anew and starts it.
  void StartSoundCapture();
  void StopSoundCapture();

  // Beyond the recorder as the window has always known it.

  /// Closes a file that a stop before its first half left open; none other.
  void letGoOfFile();
  /// One sentence for the user when this recording is in trouble; empty while all is well. Once
  /// the file cannot be written any more (disk full, folder removed, file held by another program)
  /// the recording has ended by itself: `writingtofile` is false, what was written so far is a
  /// finished file, ticks do nothing. While no sound arrives (the sound server is away) it waits,
  /// and the sentence goes when sound comes back. A new start clears it.
  std::string trouble() const;
  /// The recording ended by itself. Until the next start.
  bool endedByTrouble() const { return endedByTrouble_; }
  /// Halves of this recording (two seconds each) that were overwritten before a tick fetched them:
  /// the user-interface thread was held up for too long. Stays after the stop, until the next
  /// start.
  std::int32_t missedHalves() const { return halves_.missed(); }
  /// The file of the last recording that was finished with sound in it; empty: none yet. For a
  /// window that wants to offer a standard copy after the stop.
  const std::string& finishedFile() const { return finishedFile_; }

 private:
  void InitDevices();
  void MakeCaptureBuffer();
  void OpenWaveFile(const std::string& name);
  void FinishWaveFile();
  void AppendBlock();

  void transfer();
  void readRest();
  void patchSizes();
  void endInTrouble(const std::string& reason);
  void abandon();
  void forgetNote();
  void readCursors();
  void measure();
  platform::CaptureBuffer& buffer() const;
  template <typename Step>
  bool tried(Step&& step);

  Doors doors_;
  std::unique_ptr<platform::CaptureDevice> captureDevice_;
  std::unique_ptr<platform::CaptureBuffer> captureBuffer_;
  platform::WaveFormat waveFormat_;
  std::int32_t bufferBytes_ = 0;
  platform::CaptureCursors cursors_;  // only `read` is used
  std::vector<std::int16_t> block_;   // on its way from the capture buffer to the file
  std::vector<std::int16_t> probe_;
  std::int32_t peak_ = 0;
  std::int32_t average_ = 0;
  std::string fileName_;
  std::int16_t half_ = 0;  // where the read cursor was at the last tick: 0 not known, 1, 2
  bool writing_ = false;
  std::int32_t dataBytes_ = 0;
  std::unique_ptr<platform::OutputFile> file_;
  WaveHeader header_;
  std::int32_t lastProbePos_ = 0;  // never reset by a new recording

  std::string fileTrouble_;
  std::string captureFault_;
  bool noted_ = false;  // the note of an unfinished recording is this one's
  bool endedByTrouble_ = false;
  HalfCount halves_;
  std::string finishedFile_;
};

}  // namespace nerolith::recording
