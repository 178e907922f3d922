#include "platform/linux/system/posix_byte_files.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <csignal>
#include <filesystem>

#include "linux_system/faulty_disk.h"
#include "linux_system/scratch_folder.h"
#include "platform/failure.h"

namespace nerolith::system {
namespace {

using Fault = FaultyDisk::Fault;
constexpr int kMostCalls = 30;

class PosixBytes : public ::testing::Test {
 protected:
  PosixBytes() { scratch.addFile("list.m3u", old); }

  void replace() { PosixByteFiles().replace(path, fresh); }
  std::string contents() const { return scratch.contents("list.m3u"); }
  std::vector<std::string> others() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(scratch.path()))
      if (entry.path().filename() != "list.m3u") names.push_back(entry.path().filename().string());
    return names;
  }
  unsigned mode() const {
    struct stat status;
    return stat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
  }

  /// Replaces in a process of its own that is killed at its n-th call; whether it was.
  bool killedWhileReplacing(int n, bool nameless) {
    const pid_t child = fork();
    if (child == 0) {
      FaultyDisk disk(Fault::Kills, n);
      if (!nameless) disk.refuseNamelessFiles();
      replace();
      _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
  }

  ScratchFolder scratch;
  const std::string path = scratch.path("list.m3u");
  const std::string old = "/m/old.mp3\r\n";
  const std::string fresh = std::string(300'000, 'n') + "\r\n";
};

TEST_F(PosixBytes, WhicheverStepOfAReplacementFailsTheOldFileIsWholeAndAlone) {
  for (const bool nameless : {true, false}) {
    int n = 1;
    for (;; ++n) {
      ASSERT_LT(n, kMostCalls);
      FaultyDisk disk(Fault::Fails, n);
      if (!nameless) disk.refuseNamelessFiles();
      try {
        replace();
        break;
      } catch (const platform::Failure&) {
        EXPECT_EQ(contents(), old) << n;
        EXPECT_TRUE(others().empty()) << n;
      }
    }
    // Open, write, fchmod, fsync, (linkat,) rename have failed, each once.
    EXPECT_EQ(n, nameless ? 7 : 6);
    EXPECT_EQ(contents(), fresh);
    EXPECT_TRUE(others().empty());
    scratch.addFile("list.m3u", old);
  }
}

TEST_F(PosixBytes, AKillAtAnyStepOfAReplacementLeavesTheOldFileWhole) {
  int n = 1;
  for (; killedWhileReplacing(n, true); ++n) {
    ASSERT_LT(n, kMostCalls);
    EXPECT_EQ(contents(), old) << n;
    // Only between getting a name and taking the place is there something to leave.
    const auto left = others();
    EXPECT_LE(left.size(), 1u) << n;
    for (const std::string& name : left) EXPECT_EQ(scratch.contents(name), fresh) << n;
    for (const std::string& name : left) std::filesystem::remove(scratch.path(name));
  }
  EXPECT_GE(n, 6);
  EXPECT_EQ(contents(), fresh);
}

TEST_F(PosixBytes, SoDoesAKillWhereTheDiskKnowsNoNamelessFiles) {
  int n = 1;
  for (; killedWhileReplacing(n, false); ++n) {
    ASSERT_LT(n, kMostCalls);
    EXPECT_EQ(contents(), old) << n;
  }
  EXPECT_EQ(contents(), fresh);
}

TEST_F(PosixBytes, WhicheverStepOfAnAppendingFailsTheFileIsAsLongAsBefore) {
  int n = 1;
  for (;; ++n) {
    ASSERT_LT(n, kMostCalls);
    const FaultyDisk disk(Fault::Fails, n);
    try {
      PosixByteFiles().append(path, fresh);
      break;
    } catch (const platform::Failure&) {
      EXPECT_EQ(contents(), old) << n;
    }
  }
  EXPECT_EQ(n, 4);  // open, write and fsync have failed
  EXPECT_EQ(contents(), old + fresh);
}

TEST_F(PosixBytes, AKillWhileAppendingLosesNothingThatWasThere) {
  for (int n = 1; n < 4; ++n) {
    scratch.addFile("list.m3u", old);
    const pid_t child = fork();
    if (child == 0) {
      const FaultyDisk disk(Fault::Kills, n);
      PosixByteFiles().append(path, fresh);
      _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status)) << n;
    EXPECT_TRUE(contents().starts_with(old)) << n;
  }
}

TEST_F(PosixBytes, AFileKeepsItsPermissions) {
  chmod(path.c_str(), 0640);
  replace();
  EXPECT_EQ(mode(), 0640u);
}

TEST_F(PosixBytes, ANewFileHasThoseThatTheUserGivesNewFiles) {
  const mode_t mask = umask(027);
  PosixByteFiles().replace(scratch.path("new.m3u"), "x");
  PosixByteFiles().create(scratch.path("empty.m3u"));
  umask(mask);
  for (const char* name : {"new.m3u", "empty.m3u"}) {
    struct stat status;
    ASSERT_EQ(stat(scratch.path(name).c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0640u) << name;
  }
}

TEST_F(PosixBytes, ALinkIsFollowedAndStaysALink) {
  scratch.addFile("real/one.m3u", old);
  std::filesystem::create_symlink("real/one.m3u", scratch.path("link.m3u"));
  PosixByteFiles files;
  files.replace(scratch.path("link.m3u"), "new\r\n");
  EXPECT_TRUE(std::filesystem::is_symlink(scratch.path("link.m3u")));
  EXPECT_EQ(scratch.contents("real/one.m3u"), "new\r\n");
}

TEST_F(PosixBytes, ALinkThatLeadsNowhereLeadsToTheNewFile) {
  scratch.addFolder("real");
  for (const char* name : {"replaced", "created"}) {
    const std::string link = scratch.path(std::string(name) + " link.m3u");
    std::filesystem::create_symlink(std::string("real/") + name, link);
  }
  PosixByteFiles files;
  files.replace(scratch.path("replaced link.m3u"), "new\r\n");
  files.create(scratch.path("created link.m3u"));
  EXPECT_EQ(scratch.contents("real/replaced"), "new\r\n");
  EXPECT_TRUE(scratch.exists("real/created"));
}

TEST_F(PosixBytes, LinksInACircleFail) {
  std::filesystem::create_symlink("b", scratch.path("a"));
  std::filesystem::create_symlink("a", scratch.path("b"));
  EXPECT_THROW(PosixByteFiles().replace(scratch.path("a"), "x"), platform::Failure);
}

TEST_F(PosixBytes, AReadOnlyFolderLeavesTheFile) {
  EXPECT_EXIT(
      {
        chmod(scratch.path().c_str(), 0555);
        becomeNobody();
        try {
          replace();
        } catch (const platform::Failure&) {
          _exit(contents() == old ? 0 : 1);
        }
        _exit(2);
      },
      ::testing::ExitedWithCode(0), "");
  EXPECT_EQ(contents(), old);
}

TEST_F(PosixBytes, TheLongestNameCanBeReplaced) {
  const std::string name(255, 'n');
  scratch.addFile(name, old);
  PosixByteFiles().replace(scratch.path(name), "new");
  EXPECT_EQ(scratch.contents(name), "new");
}

TEST_F(PosixBytes, APipeOrADeviceIsNoFile) {
  const std::string pipe = scratch.path("pipe");
  mkfifo(pipe.c_str(), 0644);
  PosixByteFiles files;
  EXPECT_THROW(platform::readWhole(files, pipe), platform::Failure);
  EXPECT_THROW(files.append(pipe, "x"), platform::Failure);
  EXPECT_THROW(files.replace(pipe, "x"), platform::Failure);
  EXPECT_THROW(files.create(pipe), platform::Failure);
  EXPECT_THROW(platform::readWhole(files, "/dev/zero"), platform::Failure);
}

TEST_F(PosixBytes, NamesMayBeAnyBytes) {
  const std::string odd = scratch.path("stray \xFF\n.m3u");
  PosixByteFiles files;
  files.create(odd);
  files.append(odd, "a");
  EXPECT_EQ(platform::readWhole(files, odd), "a");
}

}  // namespace
}  // namespace nerolith::system
