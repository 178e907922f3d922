// Capture and tone, loaded only when they are needed.
#pragma once

#include <memory>
#include <string>

#include "platform/calibration_tone.h"
#include "platform/linux/system/sound_module.h"
#include "platform/sound_capture.h"

namespace nerolith::system {

/// Stands for the capture in the sound module: neither that nor the sound server is touched before
/// the first device is opened, which fails if the module cannot be had. Outlives its devices.
class LazyCapture : public platform::SoundCapture {
 public:
  explicit LazyCapture(LazySoundEngine& module) : module_(module) {}

  std::unique_ptr<platform::CaptureDevice> openDefaultDevice() override {
    if (!capture_) capture_ = module_.createCapture();
    return capture_->openDefaultDevice();
  }
  std::string captureTrouble() const override {
    return capture_ ? capture_->captureTrouble() : std::string();
  }
  std::string whereToObtain() const override {
    return "(here: PulseAudio or PipeWire, from the packages pulseaudio or pipewire-pulse)";
  }

 private:
  LazySoundEngine& module_;
  std::unique_ptr<platform::SoundCapture> capture_;
};

/// The same for the tone, up to the first buffer.
class LazyTone : public platform::CalibrationTone {
 public:
  explicit LazyTone(LazySoundEngine& module) : module_(module) {}

  std::unique_ptr<platform::ToneBuffer> createBuffer(const platform::WaveFormat& format,
                                                     std::int32_t bytes) override {
    if (!tone_) tone_ = module_.createTone();
    return tone_->createBuffer(format, bytes);
  }

 private:
  LazySoundEngine& module_;
  std::unique_ptr<platform::CalibrationTone> tone_;
};

}  // namespace nerolith::system
