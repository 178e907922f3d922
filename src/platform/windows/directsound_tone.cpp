#include "platform/windows/directsound_tone.h"

#include <cstring>
#include <utility>

#include "platform/failure.h"

namespace nerolith::windows {
namespace {

constexpr const char* kWhat = "The calibration tone";

/// The player's window in front; the desktop's where there is none.
HWND ownWindow() {
  const HWND active = GetActiveWindow();
  return active ? GetAncestor(active, GA_ROOT) : GetDesktopWindow();
}

class DirectSoundToneBuffer : public platform::ToneBuffer {
 public:
  DirectSoundToneBuffer(ComPointer<IDirectSound8> device, const platform::WaveFormat& format,
                        std::int32_t bytes)
      : bytes_(static_cast<DWORD>(bytes)), device_(std::move(device)) {
    requireSound(device_->SetCooperativeLevel(ownWindow(), DSSCL_PRIORITY), kWhat);
    WAVEFORMATEX wave = systemFormat(format);
    DSBUFFERDESC description{};
    description.dwSize = sizeof description;
    description.dwFlags = DSBCAPS_CTRLVOLUME | DSBCAPS_GLOBALFOCUS;
    description.dwBufferBytes = bytes_;
    description.lpwfxFormat = &wave;
    requireSound(device_->CreateSoundBuffer(&description, buffer_.out(), nullptr), kWhat);
    fill([](void* place, DWORD count, std::size_t) { std::memset(place, 0, count); });
  }
  ~DirectSoundToneBuffer() override { buffer_->Stop(); }
  DirectSoundToneBuffer(const DirectSoundToneBuffer&) = delete;
  DirectSoundToneBuffer& operator=(const DirectSoundToneBuffer&) = delete;

  void write(std::span<const std::int16_t> samples) override {
    const auto sound = std::as_bytes(samples);
    if (sound.size() < bytes_) throw platform::Failure("The tone is shorter than its buffer.");
    fill([sound](void* place, DWORD count, std::size_t offset) {
      std::memcpy(place, sound.data() + offset, count);
    });
  }
  void playLooping() override { requireSound(buffer_->Play(0, 0, DSBPLAY_LOOPING), kWhat); }
  void stop() override { requireSound(buffer_->Stop(), kWhat); }

 private:
  /// `use(place, count, offset)` is called for each piece of the buffer's memory.
  template <class Use>
  void fill(Use use) {
    void* first = nullptr;
    void* second = nullptr;
    DWORD firstCount = 0, secondCount = 0;
    requireSound(buffer_->Lock(0, bytes_, &first, &firstCount, &second, &secondCount, 0), kWhat);
    if (first != nullptr) use(first, firstCount, 0);
    if (second != nullptr) use(second, secondCount, firstCount);
    buffer_->Unlock(first, firstCount, second, secondCount);
  }

  const DWORD bytes_;
  ComPointer<IDirectSound8> device_;  // outlives its buffer
  ComPointer<IDirectSoundBuffer> buffer_;
};

}  // namespace

std::unique_ptr<platform::ToneBuffer> DirectSoundTone::createBuffer(
    const platform::WaveFormat& format, std::int32_t bytes) {
  return std::make_unique<DirectSoundToneBuffer>(library_.openDefaultOutput(), format, bytes);
}

}  // namespace nerolith::windows
