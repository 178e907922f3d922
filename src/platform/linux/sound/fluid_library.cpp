#include "platform/linux/sound/fluid_library.h"

#include <dlfcn.h>

#include <string>

#include "platform/failure.h"

namespace nerolith::sound {

FluidLibrary::FluidLibrary()
    : library_(::dlopen("libfluidsynth.so.3", RTLD_LAZY | RTLD_LOCAL | RTLD_NODELETE)) {
  if (library_ == nullptr) {
    throw platform::Failure("FluidSynth, which plays MIDI, is not installed (package " +
                            std::string("libfluidsynth3)."));
  }
  find(set_log_function, "fluid_set_log_function");
  find(new_settings, "new_fluid_settings");
  find(delete_settings, "delete_fluid_settings");
  find(settings_setnum, "fluid_settings_setnum");
  find(settings_setint, "fluid_settings_setint");
  find(new_synth, "new_fluid_synth");
  find(delete_synth, "delete_fluid_synth");
  find(sfload, "fluid_synth_sfload");
  find(write_float, "fluid_synth_write_float");
  find(noteon, "fluid_synth_noteon");
  find(noteoff, "fluid_synth_noteoff");
  find(key_pressure, "fluid_synth_key_pressure");
  find(cc, "fluid_synth_cc");
  find(program_change, "fluid_synth_program_change");
  find(channel_pressure, "fluid_synth_channel_pressure");
  find(pitch_bend, "fluid_synth_pitch_bend");
  find(system_reset, "fluid_synth_system_reset");
}

template <typename Function>
void FluidLibrary::find(Function& function, const char* name) {
  function = reinterpret_cast<Function>(::dlsym(library_, name));
  if (function == nullptr) throw platform::Failure(std::string("FluidSynth has no ") + name + ".");
}

}  // namespace nerolith::sound
