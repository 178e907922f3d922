// The recording section's window: records what the player plays, and meters it.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/signal.h"
#include "forms/recording_form.h"
#include "platform/byte_files.h"
#include "platform/calibration_tone.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/event_queue.h"
#include "platform/file_system.h"
#include "platform/window_host.h"
#include "recording/calibration.h"
#include "recording/fade_stop.h"
#include "recording/limit_boxes.h"
#include "recording/playing.h"
#include "recording/recorder.h"
#include "recording/volume_correction.h"

namespace nerolith::recording {

/// What the window asks of the machine. All of it outlives the window.
struct RecordingDoors {
  platform::SoundCapture& capture;
  platform::CalibrationTone& tone;
  platform::OutputFiles& output;
  platform::FileSystem& files;
  platform::Dialogs& dialogs;
  platform::Clock& clock;
  platform::SettingsStore& settings;
  const platform::ByteFiles& bytes;
  platform::EventQueue& events;
  platform::WindowHost& windows;
  /// The stored choice whether the volume is adjusted.
  std::function<bool()> readAdjust;
  std::function<void(bool)> writeAdjust;
};

/// Owns the form and the one recorder, for its whole life. States: idle (metering while the volume
/// adjust is on) -> calibrating -> idle -> recording -> fading -> idle. Recording and fading are
/// the time in which Timer2 runs.
///
/// An action of the user that fails ends there and says why in the window; a tick that fails ends
/// quietly. A recording's file is finished exactly once, whichever of these comes first: the end of
/// the fade, the player's Stop, Exit, a new start, `close`.
class RecordingWindow {
 public:
  /// Makes the recorder and starts its capture, then loads the stored choice. Never fails: see
  /// `ready`. `mainForm` is the window that this one stands beside; `correction` is told when the
  /// adjust is switched on.
  RecordingWindow(const RecordingDoors& doors, Playing& playing, const controls::Form& mainForm,
                  CorrectionState& correction);
  ~RecordingWindow();
  RecordingWindow(const RecordingWindow&) = delete;
  RecordingWindow& operator=(const RecordingWindow&) = delete;

  forms::RecordingForm& form() { return form_; }

  /// Sound can be captured here. `open` tries again where it could not be.
  bool ready() const { return ready_; }
  bool adjustEnabled() const { return adjustEnabled_; }
  /// A recording was begun and is not finished.
  bool recording() const;
  /// The level that was last measured, 0..32768; fails when not ready.
  std::int32_t peakLevel() { return need().Peaklevel(); }
  /// Opened and not left by Exit since: it is seen whenever the main window is.
  bool recordWindowShown() const { return recordWindowShown_; }

  /// The menu's "Recording section": shows the window, or says why there is none.
  void open();
  /// Begins to capture anew; failures are swallowed. Nothing while a recording is under way, which
  /// would lose sound by that.
  void startcapture();
  /// 0 chooses the file, 1 how to record, 2 start, 3 fade out and stop, 4 about the volumes.
  void Label2_Click(std::size_t index);
  /// Switches the volume adjust.
  void Label4_Click();
  /// Calibration on, off.
  void Label7_Click();
  /// Exit: a recording ends without a fade, the playing goes on.
  void Label1_Click();

  /// The player was stopped: a recording ends at once.
  void playerStopped();
  /// The program ends: a recording is finished, nothing happens here any more.
  void close();

 private:
  void initialise();
  void load();
  void bind();
  recordsound2file& need();

  void Timer1_Timer();
  void Timer2_Timer();
  void showLevel(std::int32_t peak);
  void showState();
  void showTrouble();
  void watchLimit();

  bool busy() const { return form_.Timer2.enabled(); }
  bool calibrating() const;
  bool chooseFile();
  void start();
  void fadeOutAndStop();
  void fadeIsOver();
  void finishRecording();
  void captureAsChosen();
  void showOutcome(bool written);
  void beginCalibration();
  void endCalibration();
  void stopPlayer();
  void inform(std::string_view text);
  void saveStandardCopy();

  /// Runs an action of the user; its failure is told in the window.
  bool act(const std::function<void()>& action);
  void tell(std::string text);

  template <typename Signal, typename Handler>
  void on(Signal& signal, Handler handler) {
    subscriptions_.push_back(signal.subscribe(std::move(handler)));
  }

  RecordingDoors doors_;
  Playing& playing_;
  const controls::Form& mainForm_;
  CorrectionState& correction_;
  forms::RecordingForm form_;
  UnfinishedRecording unfinished_;
  std::unique_ptr<recordsound2file> recorder_;
  LimitBoxes limits_;
  Calibration calibration_;
  FadeStop fade_;

  bool ready_ = false;
  bool recordingActive_ = false;
  bool adjustEnabled_ = true;
  bool cancelled_ = false;
  bool recordWindowShown_ = false;
  bool stoppingPlayer_ = false;  // the player's Stop is this window's own
  bool closed_ = false;
  std::string told_;  // what an action could not do

  std::vector<base::Subscription> subscriptions_;
};

}  // namespace nerolith::recording
