// The deck's contract, held against the real decoders on a clock of the test's own.
#include "contracts/filter_graph_contract.h"

#include <fstream>

#include "linux_sound/offline_engine.h"

namespace nerolith::contracts {
namespace {

class OfflineRig : public FilterGraphRig {
 public:
  platform::FilterGraphFactory& factory() override { return machine_.engine; }
  std::string soundFile(double seconds) override {
    return machine_.file(std::to_string(seconds) + ".wav", sound_tests::chirp(seconds));
  }
  std::string missingFile() override { return machine_.scratch / "missing.mp3"; }
  std::string brokenFile() override {
    std::ofstream(machine_.scratch / "broken.mp3") << "This is no music.";
    return machine_.scratch / "broken.mp3";
  }
  void pass(double seconds) override { machine_.output->advance(seconds); }
  double slack() const override { return 0.1; }

 private:
  sound_tests::OfflineEngine machine_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(LibavOffline, FilterGraphContract, OfflineRig);

}  // namespace
}  // namespace nerolith::contracts
