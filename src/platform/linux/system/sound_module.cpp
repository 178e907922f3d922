#include "platform/linux/system/sound_module.h"

#include <dlfcn.h>

#include <system_error>
#include <utility>

#include "platform/failure.h"

namespace nerolith::system {
namespace {

using platform::Failure;
using platform::FilterGraph;

constexpr const char* kModule = "velmarion-sound.so";

std::vector<std::filesystem::path> usualPlaces() {
  std::error_code error;
  const auto folder = std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
  return {folder / kModule, folder.parent_path() / "lib" / "velmarion" / kModule};
}

/// Empty until it is given a file to render: only then is there need of the engine.
class LazyGraph : public FilterGraph {
 public:
  explicit LazyGraph(LazySoundEngine& engine) : engine_(engine) {}

  void renderFile(const std::string& path) override {
    if (!graph_) graph_ = engine_.engine().createFilterGraph();
    graph_->renderFile(path);
  }
  void run() override { graph().run(); }
  void pause() override { graph().pause(); }
  void stop() override {
    if (graph_) graph_->stop();
  }
  double duration() const override { return graph().duration(); }
  double currentPosition() const override { return graph_ ? graph_->currentPosition() : 0; }
  void setCurrentPosition(double seconds) override { graph().setCurrentPosition(seconds); }
  std::int32_t volume() const override { return graph().volume(); }
  void setVolume(std::int32_t hundredthsOfDecibel) override {
    graph().setVolume(hundredthsOfDecibel);
  }

 private:
  FilterGraph& graph() const {
    if (!graph_) throw Failure("This deck holds no file.");
    return *graph_;
  }

  LazySoundEngine& engine_;
  std::unique_ptr<FilterGraph> graph_;
};

}  // namespace

LazySoundEngine::LazySoundEngine() : LazySoundEngine(usualPlaces()) {}

LazySoundEngine::LazySoundEngine(std::vector<std::filesystem::path> places)
    : places_(std::move(places)) {}

LazySoundEngine::~LazySoundEngine() {
  if (loader_.joinable()) loader_.join();
}

void LazySoundEngine::warmUp() {
  if (begun_) return;
  begun_ = true;
  try {
    loader_ = std::thread([this] { load(); });
  } catch (const std::system_error&) {
    begun_ = false;  // no thread to be had: then it is loaded when it is needed
  }
}

std::unique_ptr<FilterGraph> LazySoundEngine::createFilterGraph() {
  return std::make_unique<LazyGraph>(*this);
}

std::unique_ptr<platform::DurationReader> LazySoundEngine::readDurations(
    std::vector<std::string> paths) {
  return engine().readDurations(std::move(paths));
}

std::string LazySoundEngine::soundTrouble() const {
  if (!over_.load(std::memory_order_acquire)) return {};
  return engine_ ? engine_->soundTrouble() : trouble_;
}

double LazySoundEngine::startDelay() const {
  return over_.load(std::memory_order_acquire) && engine_ ? engine_->startDelay() : 0;
}

platform::FilterGraphFactory& LazySoundEngine::engine() {
  needModule();
  return *engine_;
}

void LazySoundEngine::needModule() {
  if (!begun_) {
    begun_ = true;
    load();
  }
  if (loader_.joinable()) loader_.join();
  if (!engine_) throw Failure(trouble_);
}

template <class Door>
std::unique_ptr<Door> LazySoundEngine::made(const char* function) {
  needModule();
  using Create = Door*();
  auto* create = reinterpret_cast<Create*>(::dlsym(module_, function));
  std::unique_ptr<Door> door(create == nullptr ? nullptr : create());
  if (!door) throw Failure("The sound module does not belong to this program.");
  return door;
}

std::unique_ptr<platform::SoundCapture> LazySoundEngine::createCapture() {
  return made<platform::SoundCapture>("nerolith_createSoundCapture");
}

std::unique_ptr<platform::CalibrationTone> LazySoundEngine::createTone() {
  return made<platform::CalibrationTone>("nerolith_createCalibrationTone");
}

void LazySoundEngine::load() {
  std::string reason = "it is not installed";
  for (const auto& place : places_) {
    std::error_code error;
    if (!std::filesystem::exists(place, error)) continue;
    // Never unloaded: a thread that hangs in a dead network share may still run in it.
    void* module = ::dlopen(place.c_str(), RTLD_LAZY | RTLD_LOCAL | RTLD_NODELETE);
    if (module == nullptr) {
      reason = ::dlerror();
      continue;
    }
    using Create = platform::FilterGraphFactory*();
    auto* create = reinterpret_cast<Create*>(::dlsym(module, "nerolith_createSoundEngine"));
    if (create != nullptr) engine_.reset(create());
    module_ = module;
    if (engine_) break;
    reason = "it does not belong to this program";
  }
  if (!engine_) trouble_ = "The sound module cannot be loaded: " + reason + ".";
  over_.store(true, std::memory_order_release);
}

}  // namespace nerolith::system
