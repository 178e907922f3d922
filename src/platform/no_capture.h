// A machine that neither captures sound nor plays the tone.
#pragma once

#include "platform/calibration_tone.h"
#include "platform/failure.h"
#include "platform/sound_capture.h"

namespace nerolith::platform {

class NoSoundCapture final : public SoundCapture {
 public:
  std::unique_ptr<CaptureDevice> openDefaultDevice() override {
    throw Failure("There is no device that captures sound.");
  }
};

class NoCalibrationTone final : public CalibrationTone {
 public:
  std::unique_ptr<ToneBuffer> createBuffer(const WaveFormat&, std::int32_t) override {
    throw Failure("There is no device that plays the tone.");
  }
};

}  // namespace nerolith::platform
