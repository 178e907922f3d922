#include <gtest/gtest.h>

#include "contracts/output_files_contract.h"
#include "platform/windows/windows_output_files.h"
#include "windows_system/scratch_folder.h"

namespace nerolith::contracts {
namespace {

struct WindowsOutputBackend {
  platform::OutputFiles& output() { return system; }
  std::string path(const std::string& relative) { return scratch.path(relative); }
  void addFile(const std::string& relative, const std::string& contents) {
    scratch.addFile(relative, contents);
  }
  void addFolder(const std::string& relative) { scratch.addFolder(relative); }
  void protect(const std::string& relative) {
    scratch.addAttributes(relative, FILE_ATTRIBUTE_READONLY);
  }
  std::string contents(const std::string& relative) {
    const windows::SystemHandle file(
        CreateFileW(windows::systemPath(scratch.path(relative)).c_str(), GENERIC_READ,
                    FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr));
    if (!file) throw std::runtime_error("no file " + relative);
    std::string bytes(1 << 16, '\0');
    DWORD count = 0;
    ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr);
    bytes.resize(count);
    return bytes;
  }
  std::vector<std::string> names() { return scratch.names(); }

  windows::ScratchFolder scratch;
  windows::WindowsFileSystem files;
  windows::WindowsOutputFiles system{files};
};
INSTANTIATE_TYPED_TEST_SUITE_P(Windows, OutputFilesContract, WindowsOutputBackend);

TEST(WindowsOutput, NobodyRemovesWhatIsBeingWritten) {
  WindowsOutputBackend backend;
  backend.addFolder("takes");
  const auto file = backend.output().create(backend.path("takes\\a.wav"));
  EXPECT_FALSE(DeleteFileW(windows::systemPath(backend.path("takes\\a.wav")).c_str()));
  EXPECT_FALSE(RemoveDirectoryW(windows::systemPath(backend.path("takes")).c_str()));
  file->append(asBytes("1"));
  file->close();
  EXPECT_EQ(backend.contents("takes\\a.wav"), "1");
}

TEST(WindowsOutput, AFileThatAnotherProgramHoldsIsNamedAndLeftAlone) {
  WindowsOutputBackend backend;
  backend.addFile("a.wav", "theirs");
  const std::string path = backend.path("a.wav");
  {
    const windows::SystemHandle theirs(CreateFileW(windows::systemPath(path).c_str(), GENERIC_READ,
                                                   FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0,
                                                   nullptr));
    ASSERT_TRUE(theirs);
    for (const bool anew : {true, false}) {
      try {
        anew ? backend.output().create(path) : backend.output().reopen(path);
        FAIL() << "taken";
      } catch (const platform::Failure& failure) {
        EXPECT_EQ(std::string(failure.what()).find(path + ": "), 0U) << failure.what();
      }
    }
  }
  EXPECT_EQ(backend.contents("a.wav"), "theirs");
  backend.output().create(path)->append(asBytes("mine"));
  EXPECT_EQ(backend.contents("a.wav"), "mine");
}

TEST(WindowsOutput, OthersMayListenToWhatIsBeingWritten) {
  WindowsOutputBackend backend;
  const auto file = backend.output().create(backend.path("a.wav"));
  file->append(asBytes("1234"));
  EXPECT_EQ(backend.contents("a.wav"), "1234");
}

TEST(WindowsOutput, TakesNamesOfAnyLengthAndAlphabet) {
  WindowsOutputBackend backend;
  std::string relative = "\xD0\x9C\xE2\x98\x83";
  for (int i = 0; i < 5; ++i) relative += "/" + std::string(70, 'x');
  backend.addFolder(relative);
  backend.output().create(backend.path(relative + "/take.wav"))->append(asBytes("1"));
  EXPECT_EQ(backend.contents(relative + "/take.wav"), "1");
}

}  // namespace
}  // namespace nerolith::contracts
