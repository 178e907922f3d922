// A tone beside the music, through the sound server.
#pragma once

#include "platform/calibration_tone.h"

namespace nerolith::sound {

/// Each buffer is a playback stream of its own on the user's default device, at full level; its
/// volume on the server is the user's own. When the server goes away, a tone sounds again once it
/// is back. Cheap to make; a buffer connects when it is created, which takes two seconds at most
/// where a server hangs.
class PulseTone : public platform::CalibrationTone {
 public:
  std::unique_ptr<platform::ToneBuffer> createBuffer(const platform::WaveFormat& format,
                                                     std::int32_t bytes) override;
};

}  // namespace nerolith::sound
