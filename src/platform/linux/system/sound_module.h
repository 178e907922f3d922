// The sound engine, loaded only when it is needed.
#pragma once

#include <atomic>
#include <filesystem>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "platform/calibration_tone.h"
#include "platform/filter_graph.h"
#include "platform/sound_capture.h"

namespace nerolith::system {

/// Stands for the sound engine in the module `velmarion-sound.so`, whose decoders draw in a hundred
/// libraries: the window must not wait for them. The module is loaded when the first file is
/// rendered, or ahead of that by `warmUp`, and stays for the life of the program.
///
/// If it cannot be loaded, rendering a file fails and `soundTrouble` says why. Outlives its graphs.
/// User-interface thread only.
class LazySoundEngine : public platform::FilterGraphFactory {
 public:
  /// Looks for the module beside the program, then in ../lib/velmarion/ from there.
  LazySoundEngine();
  /// Looks in these places only, in this order.
  explicit LazySoundEngine(std::vector<std::filesystem::path> places);
  ~LazySoundEngine() override;
  LazySoundEngine(const LazySoundEngine&) = delete;
  LazySoundEngine& operator=(const LazySoundEngine&) = delete;

  /// Loads the module on a thread of its own, once; returns at once. Call it when the window is up.
  void warmUp();

  std::unique_ptr<platform::FilterGraph> createFilterGraph() override;
  std::unique_ptr<platform::DurationReader> readDurations(std::vector<std::string> paths) override;
  std::string soundTrouble() const override;
  double startDelay() const override;

  /// The real engine, loaded if need be. Fails if it cannot be had.
  platform::FilterGraphFactory& engine();
  /// The module's other doors (see lazy_capture.h); fail likewise.
  std::unique_ptr<platform::SoundCapture> createCapture();
  std::unique_ptr<platform::CalibrationTone> createTone();

 private:
  void load();
  void needModule();
  template <class Door>
  std::unique_ptr<Door> made(const char* function);

  std::vector<std::filesystem::path> places_;
  std::thread loader_;
  bool begun_ = false;
  // Written by `load`, read once it is known to be over.
  void* module_ = nullptr;
  std::unique_ptr<platform::FilterGraphFactory> engine_;
  std::string trouble_;
  std::atomic<bool> over_{false};
};

}  // namespace nerolith::system
