#include <gtest/gtest.h>

#include <algorithm>

#include "contracts/byte_files_contract.h"
#include "contracts/text_encoding_contract.h"
#include "platform/simulated/simulated_machine.h"

namespace nerolith::contracts {
namespace {

using platform::simulated::SimulatedMachine;

template <char kSeparator>
struct SimulatedBytesBackend {
  SimulatedBytesBackend() { machine.files.addFolder(path("")); }

  platform::ByteFiles& bytes() { return machine.bytes; }
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
  std::vector<std::string> names() {
    std::vector<std::string> names = machine.files.folders(path(""));
    const std::vector<std::string> files = machine.files.files(path(""), "*");
    names.insert(names.end(), files.begin(), files.end());
    return names;
  }

  SimulatedMachine machine{kSeparator};
};

using BytesBackends = ::testing::Types<SimulatedBytesBackend<'\\'>, SimulatedBytesBackend<'/'>>;
INSTANTIATE_TYPED_TEST_SUITE_P(Simulated, ByteFilesContract, BytesBackends);

template <char kSeparator>
struct SimulatedEncodingBackend {
  platform::TextEncoding& encoding() { return machine.encoding; }
  SimulatedMachine machine{kSeparator};
};

using Encodings = ::testing::Types<SimulatedEncodingBackend<'\\'>, SimulatedEncodingBackend<'/'>>;
INSTANTIATE_TYPED_TEST_SUITE_P(Simulated, TextEncodingContract, Encodings);

}  // namespace
}  // namespace nerolith::contracts
