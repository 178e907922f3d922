// Captured sound from a script, on virtual time.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/simulated/doorway.h"
#include "platform/simulated/timeline.h"
#include "platform/sound_capture.h"

namespace nerolith::platform::simulated {

/// Trace: "capture.open", "capture.create BYTES", "capture.start", "capture.stop",
/// "capture.release" when a buffer is destroyed; readings: "capture.cursors",
/// "capture.read START BYTES". Devices and buffers may not outlive this.
class SimulatedCapture : public SoundCapture {
 public:
  /// Sample number n (all channels counted) since the buffer was made; asked when it is read.
  using Sound = std::function<std::int16_t(std::int64_t sample)>;

  SimulatedCapture(const Timeline& timeline, Doorway& doorway)
      : timeline_(timeline), doorway_(doorway) {}
  SimulatedCapture(const SimulatedCapture&) = delete;
  SimulatedCapture& operator=(const SimulatedCapture&) = delete;

  // Scripting.
  void setSound(Sound sound) { sound_ = std::move(sound); }
  /// A machine without a capture device, from the next `openDefaultDevice` on.
  void setPresent(bool present) { present_ = present; }
  /// A device that cannot deliver what is asked for.
  void setDeliverable(bool deliverable) { deliverable_ = deliverable; }
  /// While away the cursors stand still, and `captureTrouble` says `trouble`.
  void goAway(const std::string& trouble);
  void comeBack();
  /// Whether a buffer runs.
  bool running() const { return running_ > 0; }

  std::unique_ptr<CaptureDevice> openDefaultDevice() override;
  std::string captureTrouble() const override { return trouble_; }

 private:
  class Device;
  class Buffer;

  /// Virtual time less the time spent away.
  Timeline::Duration present() const;

  const Timeline& timeline_;
  Doorway& doorway_;
  Sound sound_;
  std::string trouble_;
  Timeline::Duration wentAway_{0};
  Timeline::Duration away_{0};
  int running_ = 0;
  bool present_ = true;
  bool deliverable_ = true;
};

}  // namespace nerolith::platform::simulated
