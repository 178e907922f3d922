// The way into the sound engine for a program that loads it while it already runs.
#include <new>

#include "platform/linux/sound/pulse_capture.h"
#include "platform/linux/sound/pulse_tone.h"
#include "platform/linux/sound/sound_engine.h"

// Each returns a new door on the heap, the caller's to delete; null if there is no memory for it.
extern "C" {

__attribute__((visibility("default"))) nerolith::platform::FilterGraphFactory*
nerolith_createSoundEngine() {
  try {
    return new nerolith::sound::SoundEngine;
  } catch (...) {
    return nullptr;
  }
}

__attribute__((visibility("default"))) nerolith::platform::SoundCapture*
nerolith_createSoundCapture() {
  return new (std::nothrow) nerolith::sound::PulseCapture;
}

__attribute__((visibility("default"))) nerolith::platform::CalibrationTone*
nerolith_createCalibrationTone() {
  return new (std::nothrow) nerolith::sound::PulseTone;
}

}  // extern "C"
