// FluidSynth, loaded when the first MIDI file is played.
#pragma once

#include <fluidsynth.h>

namespace nerolith::sound {

/// The functions of the library that are used, by their names there. Most players never meet a MIDI
/// file: they are spared the libraries that FluidSynth brings along, and play without it.
/// Once loaded it stays loaded. Any thread.
class FluidLibrary {
 public:
  /// Fails (`platform::Failure`) when it is not installed or lacks one of the functions.
  FluidLibrary();

  decltype(&::fluid_set_log_function) set_log_function;
  decltype(&::new_fluid_settings) new_settings;
  decltype(&::delete_fluid_settings) delete_settings;
  decltype(&::fluid_settings_setnum) settings_setnum;
  decltype(&::fluid_settings_setint) settings_setint;
  decltype(&::new_fluid_synth) new_synth;
  decltype(&::delete_fluid_synth) delete_synth;
  decltype(&::fluid_synth_sfload) sfload;
  decltype(&::fluid_synth_write_float) write_float;
  decltype(&::fluid_synth_noteon) noteon;
  decltype(&::fluid_synth_noteoff) noteoff;
  decltype(&::fluid_synth_key_pressure) key_pressure;
  decltype(&::fluid_synth_cc) cc;
  decltype(&::fluid_synth_program_change) program_change;
  decltype(&::fluid_synth_channel_pressure) channel_pressure;
  decltype(&::fluid_synth_pitch_bend) pitch_bend;
  decltype(&::fluid_synth_system_reset) system_reset;

 private:
  template <typename Function>
  void find(Function& function, const char* name);

  void* library_;
};

}  // namespace nerolith::sound
