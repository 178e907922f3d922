#include <gtest/gtest.h>

#include <algorithm>

#include "contracts/output_files_contract.h"
#include "platform/simulated/simulated_machine.h"

namespace nerolith::contracts {
namespace {

using platform::simulated::SimulatedMachine;

template <char kSeparator>
struct SimulatedOutputBackend {
  SimulatedOutputBackend() { machine.files.addFolder(path("")); }

  platform::OutputFiles& output() { return machine.output; }
  std::string path(std::string relative) {
    const std::string base = kSeparator == '\\' ? "C:\\Music" : "/srv/music";
    std::replace(relative.begin(), relative.end(), '/', kSeparator);
    return relative.empty() ? base : base + kSeparator + relative;
  }
  void addFile(const std::string& relative, const std::string& contents) {
    machine.bytes.put(path(relative), contents);
  }
  void addFolder(const std::string& relative) { machine.files.addFolder(path(relative)); }
  void protect(const std::string& relative) {
    auto file = *machine.files.find(path(relative));
    file.readOnly = true;
    machine.files.addFile(path(relative), file);
  }
  std::string contents(const std::string& relative) { return machine.output.bytes(path(relative)); }
  std::vector<std::string> names() {
    std::vector<std::string> names = machine.files.folders(path(""));
    for (const std::string& file : machine.files.files(path(""), "*")) names.push_back(file);
    std::sort(names.begin(), names.end());
    return names;
  }

  SimulatedMachine machine{kSeparator};
};

using OutputBackends = ::testing::Types<SimulatedOutputBackend<'\\'>, SimulatedOutputBackend<'/'>>;
INSTANTIATE_TYPED_TEST_SUITE_P(Simulated, OutputFilesContract, OutputBackends);

}  // namespace
}  // namespace nerolith::contracts
