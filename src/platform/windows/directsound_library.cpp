#include "platform/windows/directsound_library.h"

#include <optional>
#include <string>

#include "platform/failure.h"
#include "platform/windows/failure_text.h"

namespace nerolith::windows {
namespace {

constexpr const char* kCaptureWhat = "The recording device";
constexpr const char* kOutputWhat = "The sound output";

/// What the enumeration handed out first.
struct FirstDevice {
  bool found = false;
  std::optional<GUID> id;  // nothing: the default device goes without one
};

BOOL CALLBACK takeFirst(GUID* id, const wchar_t*, const wchar_t*, void* into) {
  auto* first = static_cast<FirstDevice*>(into);
  first->found = true;
  if (id != nullptr) first->id = *id;
  return FALSE;  // no more of them
}

using Enumerate = HRESULT WINAPI(LPDSENUMCALLBACKW, void*);
using CreateCapture = HRESULT WINAPI(const GUID*, IDirectSoundCapture**, IUnknown*);
using CreateOutput = HRESULT WINAPI(const GUID*, IDirectSound8**, IUnknown*);

FirstDevice firstOf(Enumerate* enumerate, const char* what) {
  FirstDevice first;
  requireSound(enumerate(takeFirst, &first), what);
  if (!first.found) throw platform::Failure(std::string(what) + ": there is none.");
  return first;
}

const char* soundWords(HRESULT result) {
  switch (result) {
    case DSERR_NODRIVER:
      return "there is none";
    case DSERR_ALLOCATED:
      return "another program uses it";
    case DSERR_BADFORMAT:
    case DSERR_INVALIDPARAM:
      return "it cannot deal with this sound format";
    case DSERR_BUFFERLOST:
      return "it was taken away";
    default:
      return nullptr;
  }
}

}  // namespace

void requireSound(HRESULT result, const std::string& what) {
  if (SUCCEEDED(result)) return;
  const char* words = soundWords(result);
  if (words == nullptr) throwFailure(what, static_cast<DWORD>(result));
  throw platform::Failure(what + ": " + words + ".", static_cast<int>(result));
}

WAVEFORMATEX systemFormat(const platform::WaveFormat& format) {
  return {
      static_cast<WORD>(format.formatTag),         static_cast<WORD>(format.channels),
      static_cast<DWORD>(format.samplesPerSecond), static_cast<DWORD>(format.averageBytesPerSecond),
      static_cast<WORD>(format.blockAlign),        static_cast<WORD>(format.bitsPerSample),
      static_cast<WORD>(format.extraSize)};
}

template <class Function>
Function* DirectSoundLibrary::function(const char* name) {
  if (module_ == nullptr) {
    module_ = LoadLibraryExW(L"dsound.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  }
  if (module_ == nullptr) throwLastError("DirectSound");
  void* found = reinterpret_cast<void*>(GetProcAddress(module_, name));
  if (found == nullptr) throwLastError("DirectSound");
  return reinterpret_cast<Function*>(found);
}

ComPointer<IDirectSoundCapture> DirectSoundLibrary::openFirstCapture() {
  const FirstDevice first =
      firstOf(function<Enumerate>("DirectSoundCaptureEnumerateW"), kCaptureWhat);
  ComPointer<IDirectSoundCapture> device;
  requireSound(function<CreateCapture>("DirectSoundCaptureCreate8")(first.id ? &*first.id : nullptr,
                                                                    device.out(), nullptr),
               kCaptureWhat);
  return device;
}

ComPointer<IDirectSound8> DirectSoundLibrary::openFirstOutput() {
  const FirstDevice first = firstOf(function<Enumerate>("DirectSoundEnumerateW"), kOutputWhat);
  ComPointer<IDirectSound8> device;
  requireSound(function<CreateOutput>("DirectSoundCreate8")(first.id ? &*first.id : nullptr,
                                                            device.out(), nullptr),
               kOutputWhat);
  return device;
}

ComPointer<IDirectSound8> DirectSoundLibrary::openDefaultOutput() {
  ComPointer<IDirectSound8> device;
  requireSound(function<CreateOutput>("DirectSoundCreate8")(nullptr, device.out(), nullptr),
               kOutputWhat);
  return device;
}

}  // namespace nerolith::windows
