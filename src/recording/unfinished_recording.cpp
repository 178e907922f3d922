#include "recording/unfinished_recording.h"

#include "base/failure_policy.h"

namespace nerolith::recording {
namespace {

constexpr const char* kApplication = "Nerolith";
constexpr const char* kSection = "Recording";
constexpr const char* kKey = "unfinished";

}  // namespace

std::string UnfinishedRecording::path() const {
  std::string path;
  base::goOn([&] { path = settings_.read(kApplication, kSection, kKey).value_or(""); });
  return path;
}

void UnfinishedRecording::remember(const std::string& path) {
  base::goOn([&] { settings_.write(kApplication, kSection, kKey, path); });
}

}  // namespace nerolith::recording
