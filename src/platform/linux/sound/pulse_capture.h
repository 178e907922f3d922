// Hears what the machine plays, through the sound server.
#pragma once

#include "platform/linux/sound/monitor_stream.h"
#include "platform/sound_capture.h"

namespace nerolith::sound {

/// The monitor of the user's default output device, never a microphone (see monitor_stream.h). The
/// server converts to any format of 16 bits. Both cursors are one: everything before it has
/// arrived. While nothing is delivered they stand still. The sound is taken from the server when
/// the cursors are asked for, ten times a second mostly, and not piece by piece on a thread of its
/// own: that would cost more than the recording itself.
///
/// Cheap to make; each buffer has a connection of its own, from its creation on. Every call may
/// take two seconds where a server hangs, and a few milliseconds where it does not.
class PulseCapture : public platform::SoundCapture {
 public:
  std::unique_ptr<platform::CaptureDevice> openDefaultDevice() override;
  std::string captureTrouble() const override;

  /// Told by the buffers: the one that runs has begun to, or has ended.
  void begun(MonitorStream& stream) { running_ = &stream; }
  void ended(const MonitorStream& stream);

 private:
  MonitorStream* running_ = nullptr;
};

}  // namespace nerolith::sound
