#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "contracts/byte_files_contract.h"
#include "contracts/text_encoding_contract.h"
#include "linux_system/scratch_folder.h"
#include "platform/linux/system/posix_byte_files.h"
#include "platform/linux/system/posix_text_encoding.h"

namespace nerolith::contracts {
namespace {

struct PosixBytesBackend {
  platform::ByteFiles& bytes() { return system; }
  std::string path(const std::string& relative) { return scratch.path(relative); }
  void addFile(const std::string& relative, const std::string& contents) {
    scratch.addFile(relative, contents);
  }
  void addFolder(const std::string& relative) { scratch.addFolder(relative); }
  void protect(const std::string& relative) { chmod(scratch.path(relative).c_str(), 0444); }
  std::vector<std::string> names() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(scratch.path()))
      names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
  }

  system::ScratchFolder scratch;
  system::PosixByteFiles system;
};
INSTANTIATE_TYPED_TEST_SUITE_P(Posix, ByteFilesContract, PosixBytesBackend);

struct PosixEncodingBackend {
  platform::TextEncoding& encoding() { return system; }
  system::PosixTextEncoding system;
};
INSTANTIATE_TYPED_TEST_SUITE_P(Posix, TextEncodingContract, PosixEncodingBackend);

}  // namespace
}  // namespace nerolith::contracts
