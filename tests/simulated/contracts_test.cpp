#include <gtest/gtest.h>

#include <algorithm>

#include "contracts/calibration_tone_contract.h"
#include "contracts/clock_contract.h"
#include "contracts/dialogs_contract.h"
#include "contracts/file_system_contract.h"
#include "contracts/settings_store_contract.h"
#include "contracts/sound_capture_contract.h"
#include "platform/simulated/simulated_machine.h"

namespace nerolith::contracts {
namespace {

using platform::simulated::SimulatedMachine;

template <char kSeparator>
struct SimulatedFilesBackend {
  SimulatedFilesBackend() { machine.files.addFolder(path("")); }

  platform::FileSystem& files() { return machine.files; }
  std::string path(std::string relative) {
    const std::string base = kSeparator == '\\' ? "C:\\Music" : "/srv/music";
    std::replace(relative.begin(), relative.end(), '/', kSeparator);
    return relative.empty() ? base : base + kSeparator + relative;
  }
  void addFile(const std::string& relative, double modified = 44000) {
    machine.files.addFile(path(relative), {.modified = modified});
  }
  void addFolder(const std::string& relative) { machine.files.addFolder(path(relative)); }
  void remove(const std::string& relative) { machine.files.remove(path(relative)); }
  void protect(const std::string& relative) {
    machine.files.addFile(path(relative), {.readOnly = true});
  }

  SimulatedMachine machine{kSeparator};
};

using FileBackends = ::testing::Types<SimulatedFilesBackend<'\\'>, SimulatedFilesBackend<'/'>>;
INSTANTIATE_TYPED_TEST_SUITE_P(Simulated, FileSystemContract, FileBackends);

struct SimulatedSettingsBackend {
  platform::SettingsStore& store() { return machine.settings; }
  void restart() {}  // the machine goes on when the program ends
  SimulatedMachine machine;
};
INSTANTIATE_TYPED_TEST_SUITE_P(Simulated, SettingsStoreContract, SimulatedSettingsBackend);

struct SimulatedClockBackend {
  platform::Clock& clock() { return machine.clock; }
  void pass() { machine.advance(std::chrono::milliseconds(5)); }
  SimulatedMachine machine;
};
INSTANTIATE_TYPED_TEST_SUITE_P(Simulated, ClockContract, SimulatedClockBackend);

struct SimulatedDialogsBackend {
  platform::Dialogs& dialogs() { return machine.dialogs; }
  void userAnswers(platform::Answer answer) { machine.dialogs.answer(answer); }
  void userChooses(const std::string& path) { machine.dialogs.chooseFile(path); }
  void userCancels() { machine.dialogs.cancelFile(); }
  std::string somePath() { return "C:\\Music\\best.m3u"; }
  SimulatedMachine machine;
};
INSTANTIATE_TYPED_TEST_SUITE_P(Simulated, DialogsContract, SimulatedDialogsBackend);

class SimulatedSoundRig : public SoundRig {
 public:
  platform::SoundCapture& capture() override { return machine_.capture; }
  platform::CalibrationTone& tone() override { return machine_.tone; }
  void play(int peak) override {
    machine_.capture.setSound([peak](std::int64_t) { return static_cast<std::int16_t>(peak); });
  }
  int heard() override { return machine_.tone.playing() ? peakOf(machine_.tone.samples()) : 0; }
  void pass(double seconds) override {
    machine_.advance(std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::duration<double>(seconds)));
  }
  double slack() const override { return 0.001; }

 private:
  SimulatedMachine machine_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Simulated, SoundCaptureContract, SimulatedSoundRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Simulated, CalibrationToneContract, SimulatedSoundRig);

}  // namespace
}  // namespace nerolith::contracts
