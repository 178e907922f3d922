// Hears what the sound card plays, through DirectSound.
#pragma once

#include "platform/sound_capture.h"
#include "platform/windows/directsound_library.h"

namespace nerolith::windows {

/// The first capture device that DirectSound enumerates, which is the one that the user made the
/// default; whether that is the card's own mix or a microphone is set in the system's recording
/// settings. Cheap to make; DirectSound is loaded when the device is first opened. A device that is
/// taken away fails its buffers' calls.
class DirectSoundCapture : public platform::SoundCapture {
 public:
  std::unique_ptr<platform::CaptureDevice> openDefaultDevice() override;
  std::string whereToObtain() const override {
    return "(to be obtained from www.microsoft.com/download, search there for DirectX)";
  }

 private:
  DirectSoundLibrary library_;
};

}  // namespace nerolith::windows
