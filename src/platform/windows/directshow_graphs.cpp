#include "platform/windows/directshow_graphs.h"

#include <windows.h>
// After windows.h, which it needs.
#include <mmsystem.h>

#include "platform/windows/directshow_graph.h"

namespace nerolith::windows {

std::unique_ptr<platform::FilterGraph> DirectShowGraphs::createFilterGraph() {
  return std::make_unique<DirectShowGraph>(opener_);
}

std::string DirectShowGraphs::soundTrouble() const {
  if (waveOutGetNumDevs() > 0) return {};
  return "Windows has no sound output; connect or enable one and start the song again.";
}

}  // namespace nerolith::windows
