// The contracts of capture and tone, held against DirectSound: each is what the other is judged by.
#include <chrono>
#include <thread>

#include "contracts/calibration_tone_contract.h"
#include "contracts/sound_capture_contract.h"
#include "platform/windows/com_apartment.h"
#include "platform/windows/directsound_capture.h"
#include "platform/windows/directsound_tone.h"

namespace nerolith::contracts {
namespace {

/// On a machine whose default recording device is what its card plays, as on the tests' desktop.
class DirectSoundRig : public RealSoundRig {
 public:
  ~DirectSoundRig() override { fallSilent(); }
  std::string unavailable() const override {
    return waveInGetNumDevs() > 0 && waveOutGetNumDevs() > 0 ? "" : "there is no sound device";
  }
  platform::SoundCapture& capture() override { return capture_; }
  platform::CalibrationTone& tone() override { return tone_; }
  void pass(double seconds) override {
    std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
  }
  double slack() const override { return 0.25; }

 private:
  windows::ComApartment apartment_;
  windows::DirectSoundCapture capture_;
  windows::DirectSoundTone tone_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(DirectSound, SoundCaptureContract, DirectSoundRig);
INSTANTIATE_TYPED_TEST_SUITE_P(DirectSound, CalibrationToneContract, DirectSoundRig);

}  // namespace
}  // namespace nerolith::contracts
