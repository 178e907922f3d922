#include "recording/wave_name.h"

namespace nerolith::recording {
namespace {

/// Where the ending begins; the text's length when it has none. A leading dot begins no ending.
std::size_t endingOf(const std::string& path) {
  const std::size_t separator = path.find_last_of("/\\");
  const std::size_t name = separator == std::string::npos ? 0 : separator + 1;
  const std::size_t dot = path.rfind('.');
  const bool any = dot != std::string::npos && dot > name && dot + 1 < path.size();
  return any ? dot : path.size();
}

}  // namespace

std::string withWaveEnding(const std::string& path) {
  if (path.empty() || endingOf(path) < path.size()) return path;
  return path.back() == '.' ? path + "wav" : path + ".wav";
}

std::string standardCopyName(const std::string& path) {
  const std::size_t ending = endingOf(path);
  return path.substr(0, ending) + " standard" +
         (ending < path.size() ? path.substr(ending) : ".wav");
}

}  // namespace nerolith::recording
