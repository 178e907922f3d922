#include "platform/windows/directsound_capture.h"

#include <cstring>
#include <utility>

#include "platform/failure.h"

namespace nerolith::windows {
namespace {

using platform::CaptureBuffer;
using platform::CaptureCursors;

constexpr const char* kWhat = "The recording device";

class DirectSoundCaptureBuffer : public CaptureBuffer {
 public:
  DirectSoundCaptureBuffer(IDirectSoundCapture& device, const platform::WaveFormat& format,
                           std::int32_t bytes)
      : bytes_(bytes) {
    WAVEFORMATEX wave = systemFormat(format);
    DSCBUFFERDESC description{};
    description.dwSize = sizeof description;
    description.dwFlags = DSCBCAPS_WAVEMAPPED;
    description.dwBufferBytes = static_cast<DWORD>(bytes);
    description.lpwfxFormat = &wave;
    requireSound(device.CreateCaptureBuffer(&description, buffer_.out(), nullptr), kWhat);
    // A device may go on where it stopped with its last buffer; ours begin at their start.
    DWORD capture = 0;
    buffer_->GetCurrentPosition(&capture, &origin_);
    // What the memory held before is not sound.
    visit(0, bytes, [](void* place, DWORD count, std::size_t) { std::memset(place, 0, count); });
  }
  ~DirectSoundCaptureBuffer() override { buffer_->Stop(); }
  DirectSoundCaptureBuffer(const DirectSoundCaptureBuffer&) = delete;
  DirectSoundCaptureBuffer& operator=(const DirectSoundCaptureBuffer&) = delete;

  void startLooping() override { requireSound(buffer_->Start(DSCBSTART_LOOPING), kWhat); }
  void stop() override { requireSound(buffer_->Stop(), kWhat); }
  CaptureCursors cursors() const override {
    DWORD capture = 0, read = 0;
    requireSound(buffer_->GetCurrentPosition(&capture, &read), kWhat);
    return {fromOrigin(capture), fromOrigin(read)};
  }
  void read(std::int32_t start, std::int32_t bytes,
            std::span<std::int16_t> samples) const override {
    const auto room = std::as_writable_bytes(samples);
    if (start < 0 || start >= bytes_ || bytes < 0 || bytes > bytes_ ||
        static_cast<std::size_t>(bytes) > room.size()) {
      throw platform::Failure("The recorded sound has no such place.");
    }
    if (bytes == 0) return;  // nothing that could be locked
    visit(start, bytes, [room](const void* place, DWORD count, std::size_t offset) {
      std::memcpy(room.data() + offset, place, count);
    });
  }

 private:
  /// A place in the device's memory as one in this buffer.
  std::int32_t fromOrigin(DWORD place) const {
    const auto size = static_cast<DWORD>(bytes_);
    return static_cast<std::int32_t>((place + size - origin_) % size);
  }

  /// Locks a stretch of the buffer; `use(place, count, offset)` is called for each of its one or
  /// two pieces.
  template <class Use>
  void visit(std::int32_t start, std::int32_t bytes, Use use) const {
    void* first = nullptr;
    void* second = nullptr;
    DWORD firstCount = 0, secondCount = 0;
    const DWORD place = (static_cast<DWORD>(start) + origin_) % static_cast<DWORD>(bytes_);
    requireSound(buffer_->Lock(place, static_cast<DWORD>(bytes), &first, &firstCount, &second,
                               &secondCount, 0),
                 kWhat);
    if (first != nullptr) use(first, firstCount, 0);
    if (second != nullptr) use(second, secondCount, firstCount);
    buffer_->Unlock(first, firstCount, second, secondCount);
  }

  const std::int32_t bytes_;
  DWORD origin_ = 0;  // where in the device's memory this buffer begins
  ComPointer<IDirectSoundCaptureBuffer> buffer_;
};

class DirectSoundCaptureDevice : public platform::CaptureDevice {
 public:
  explicit DirectSoundCaptureDevice(DirectSoundLibrary& library)
      : output_(library.openFirstOutput()), capture_(library.openFirstCapture()) {
    // Asked as a matter of form: what the device really takes shows when a buffer is made.
    DSCCAPS abilities{};
    abilities.dwSize = sizeof abilities;
    capture_->GetCaps(&abilities);
  }

  std::unique_ptr<CaptureBuffer> createBuffer(const platform::WaveFormat& format,
                                              std::int32_t bytes) override {
    return std::make_unique<DirectSoundCaptureBuffer>(*capture_.get(), format, bytes);
  }

 private:
  ComPointer<IDirectSound8> output_;  // held open while sound is captured, and not used
  ComPointer<IDirectSoundCapture> capture_;
};

}  // namespace

std::unique_ptr<platform::CaptureDevice> DirectSoundCapture::openDefaultDevice() {
  return std::make_unique<DirectSoundCaptureDevice>(library_);
}

}  // namespace nerolith::windows
