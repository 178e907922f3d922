// The way into the sound engine for a program that loads it while it already runs.
#include "platform/linux/sound/sound_engine.h"

/// A new engine on the heap, the caller's to delete; null if there is no memory for it.
extern "C" __attribute__((visibility("default"))) nerolith::platform::FilterGraphFactory*
nerolith_createSoundEngine() {
  try {
    return new nerolith::sound::SoundEngine;
  } catch (...) {
    return nullptr;
  }
}
