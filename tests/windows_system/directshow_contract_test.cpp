// The deck's contract, held against the system's own decoders and sound output.
#include <chrono>
#include <thread>

#include "contracts/filter_graph_contract.h"
#include "platform/windows/com_apartment.h"
#include "platform/windows/directshow_graphs.h"
#include "windows_system/scratch_folder.h"
#include "windows_system/tone_file.h"

namespace nerolith::contracts {
namespace {

class DirectShowRig : public FilterGraphRig {
 public:
  std::string unavailable() const override { return graphs_.soundTrouble(); }
  platform::FilterGraphFactory& factory() override { return graphs_; }
  std::string soundFile(double seconds) override {
    const std::string name = "tone " + std::to_string(++files_) + ".wav";
    scratch_.addFile(name, windows::toneFile(seconds));
    return scratch_.path(name);
  }
  std::string missingFile() override { return scratch_.path("missing.mp3"); }
  std::string brokenFile() override {
    scratch_.addFile("broken.mp3", "This is no music.");
    return scratch_.path("broken.mp3");
  }
  void pass(double seconds) override {
    std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
  }
  double slack() const override { return 0.25; }

 private:
  windows::ComApartment apartment_;
  windows::ScratchFolder scratch_;
  windows::DirectShowGraphs graphs_;
  int files_ = 0;
};

INSTANTIATE_TYPED_TEST_SUITE_P(DirectShow, FilterGraphContract, DirectShowRig);

}  // namespace
}  // namespace nerolith::contracts
