#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>

#include <algorithm>
#include <csignal>
#include <filesystem>

#include "contracts/output_files_contract.h"
#include "linux_system/scratch_folder.h"
#include "platform/linux/system/posix_output_files.h"

namespace nerolith::contracts {
namespace {

struct PosixOutputBackend {
  platform::OutputFiles& output() { return system; }
  std::string path(const std::string& relative) { return scratch.path(relative); }
  void addFile(const std::string& relative, const std::string& contents) {
    scratch.addFile(relative, contents);
  }
  void addFolder(const std::string& relative) { scratch.addFolder(relative); }
  void protect(const std::string& relative) { chmod(scratch.path(relative).c_str(), 0444); }
  std::string contents(const std::string& relative) { return scratch.contents(relative); }
  std::vector<std::string> names() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(scratch.path()))
      names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
  }

  system::ScratchFolder scratch;
  system::PosixOutputFiles system;
};
INSTANTIATE_TYPED_TEST_SUITE_P(Posix, OutputFilesContract, PosixOutputBackend);

std::string wordsOf(const std::function<void()>& call) {
  try {
    call();
    return {};
  } catch (const platform::Failure& failure) {
    return failure.what();
  }
}

class PosixOutput : public ::testing::Test {
 protected:
  std::string path(const std::string& relative) { return backend.path(relative); }
  PosixOutputBackend backend;
  platform::OutputFiles& output = backend.system;
};

TEST_F(PosixOutput, AFileWhoseFolderWasRemovedSaysSo) {
  backend.addFolder("takes");
  const auto file = output.create(path("takes/a.wav"));
  file->append(asBytes("12345678"));
  std::filesystem::remove_all(path("takes"));
  const std::string expected = path("takes/a.wav") + ": was removed";
  EXPECT_EQ(wordsOf([&] { file->append(asBytes("9")); }), expected);
  EXPECT_EQ(wordsOf([&] { file->writeAt(0, asBytes("9")); }), expected);
  EXPECT_EQ(wordsOf([&] { file->close(); }), expected);
}

TEST_F(PosixOutput, AFileThatWasRenamedIsWrittenOn) {
  const auto file = output.create(path("a.wav"));
  std::filesystem::rename(path("a.wav"), path("b.wav"));
  file->append(asBytes("1"));
  file->close();
  EXPECT_EQ(backend.contents("b.wav"), "1");
}

TEST_F(PosixOutput, AFileThatAnotherProgramLockedIsNotTaken) {
  backend.addFile("a.wav", "theirs");
  const int other = open(path("a.wav").c_str(), O_RDWR);
  ASSERT_EQ(flock(other, LOCK_EX), 0);
  EXPECT_NE(wordsOf([&] { output.create(path("a.wav")); }).find("written by another program"),
            std::string::npos);
  EXPECT_NE(wordsOf([&] { output.reopen(path("a.wav")); }), "");
  close(other);
  EXPECT_EQ(backend.contents("a.wav"), "theirs");
}

TEST_F(PosixOutput, APipeOrADeviceIsNeitherDeletedNorWritten) {
  ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
  EXPECT_NE(wordsOf([&] { output.create(path("pipe")); }), "");
  EXPECT_NE(wordsOf([&] { output.reopen(path("pipe")); }), "");
  EXPECT_EQ(backend.names(), std::vector<std::string>{"pipe"});
  EXPECT_NE(wordsOf([&] { output.reopen("/dev/null"); }), "");
  EXPECT_NE(wordsOf([&] { output.replace("/dev/null"); }), "");
}

TEST_F(PosixOutput, ALinkIsReplacedAndItsTargetLeftAlone) {
  backend.addFile("target.wav", "precious");
  std::filesystem::create_symlink(path("target.wav"), path("a.wav"));
  output.create(path("a.wav"))->append(asBytes("new"));
  EXPECT_EQ(backend.contents("target.wav"), "precious");
  EXPECT_EQ(backend.contents("a.wav"), "new");
}

TEST_F(PosixOutput, ANameOfAnyBytesWillDo) {
  const std::string name = "caf\xE9\xFF\n.wav";
  output.create(path(name))->append(asBytes("1"));
  EXPECT_EQ(backend.contents(name), "1");
}

/// The system takes no more than `bytes` in a file, as a disk that is full.
class FileLimit {
 public:
  explicit FileLimit(rlim_t bytes) {
    std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileLimit() { setrlimit(RLIMIT_FSIZE, &before_); }

 private:
  rlimit before_{};
};

TEST_F(PosixOutput, APieceThatFitsOnlyInPartLeavesNothingOfItself) {
  const auto file = output.create(path("a.wav"));
  file->append(asBytes(std::string(3000, 'a')));
  {
    const FileLimit limit(4096);
    EXPECT_EQ(wordsOf([&] { file->append(asBytes(std::string(5000, 'b'))); }),
              path("a.wav") + ": File too large");
    EXPECT_EQ(file->size(), 3000);
    file->writeAt(0, asBytes("ok"));
  }
  file->append(asBytes("c"));
  file->close();
  EXPECT_EQ(backend.contents("a.wav"), "ok" + std::string(2998, 'a') + "c");
}

}  // namespace
}  // namespace nerolith::contracts
