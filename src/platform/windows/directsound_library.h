// DirectSound, loaded when it is first used.
#pragma once

#include <windows.h>
// After windows.h, which it needs.
#include <mmsystem.h>
// After mmsystem.h, which it needs.
#include <dsound.h>

#include <string>

#include "platform/wave_format.h"
#include "platform/windows/handles.h"

namespace nerolith::windows {

/// The system's dsound.dll: a Windows that lacks it still runs the player, and one that has it does
/// not load it before somebody records. User-interface thread only.
class DirectSoundLibrary {
 public:
  /// The first device of the enumeration, which is the user's default one, opened. Both fail where
  /// there is no DirectSound, no device, or where the device cannot be opened.
  ComPointer<IDirectSoundCapture> openFirstCapture();
  ComPointer<IDirectSound8> openFirstOutput();

  /// The user's default output device, whatever is enumerated. Fails likewise.
  ComPointer<IDirectSound8> openDefaultOutput();

 private:
  /// Fails where the library, or the function in it, is not there.
  template <class Function>
  Function* function(const char* name);

  HMODULE module_ = nullptr;  // stays for the life of the program
};

WAVEFORMATEX systemFormat(const platform::WaveFormat& format);

/// A DirectSound failure in words: the system has none for DirectSound's own codes.
void requireSound(HRESULT result, const std::string& what);

}  // namespace nerolith::windows
