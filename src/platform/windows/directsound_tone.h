// A tone beside the music, through DirectSound.
#pragma once

#include "platform/calibration_tone.h"
#include "platform/windows/directsound_library.h"

namespace nerolith::windows {

/// Plays on the user's default output device, heard whatever window is in front. Cheap to make;
/// DirectSound is loaded with the first buffer.
class DirectSoundTone : public platform::CalibrationTone {
 public:
  std::unique_ptr<platform::ToneBuffer> createBuffer(const platform::WaveFormat& format,
                                                     std::int32_t bytes) override;

 private:
  DirectSoundLibrary library_;
};

}  // namespace nerolith::windows
