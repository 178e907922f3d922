#include "library/deletion_list.h"

#include <gtest/gtest.h>

#include "platform/simulated/simulated_machine.h"

namespace nerolith::library {
namespace {

struct Deletions : testing::Test {
  platform::simulated::SimulatedMachine machine;
  DeletionList deletions;

  void SetUp() override {
    for (const char* name : {"a.mp3", "b.mp3", "c.mp3"}) machine.files.addFile(path(name));
  }
  static std::string path(const std::string& name) { return "C:\\Music\\" + name; }
  bool exists(const std::string& name) { return machine.files.find(path(name)) != nullptr; }
};

TEST_F(Deletions, TheListBeginsWithTwoEmptySlotsAtWhichNothingIsDeleted) {
  EXPECT_EQ(deletions.paths(), (std::vector<std::string>{"", ""}));
  deletions.deleteAll(machine.files);
  EXPECT_EQ(machine.trace(), "");
}

TEST_F(Deletions, MarkedFilesAndOnlyTheyAreDeletedAtTheCloseInOrder) {
  deletions.mark(path("c.mp3"));
  deletions.mark(path("a.mp3"));
  EXPECT_EQ(machine.trace(), "");
  deletions.deleteAll(machine.files);
  EXPECT_EQ(machine.trace(),
            "files.plain C:\\Music\\c.mp3 | files.delete C:\\Music\\c.mp3 | "
            "files.plain C:\\Music\\a.mp3 | files.delete C:\\Music\\a.mp3");
  EXPECT_TRUE(exists("b.mp3"));
}

TEST_F(Deletions, AFileMarkedTwiceIsDeletedOnce) {
  deletions.mark(path("a.mp3"));
  deletions.mark(path("a.mp3"));
  deletions.deleteAll(machine.files);
  EXPECT_EQ(machine.trace(), "files.plain C:\\Music\\a.mp3 | files.delete C:\\Music\\a.mp3");
}

TEST_F(Deletions, AReadOnlyFileIsDeleted) {
  machine.files.addFile(path("a.mp3"), {.readOnly = true});
  deletions.mark(path("a.mp3"));
  deletions.deleteAll(machine.files);
  EXPECT_FALSE(exists("a.mp3"));
}

TEST_F(Deletions, WhicheverCallFailsTheOtherFilesAreStillDeleted) {
  for (const char* name : {"a.mp3", "b.mp3", "c.mp3"}) deletions.mark(path(name));
  const std::uint64_t before = machine.doorCalls();
  deletions.deleteAll(machine.files);
  const std::uint64_t calls = machine.doorCalls() - before;
  ASSERT_EQ(calls, 6U);  // attributes and deletion of three files
  for (std::uint64_t n = 1; n <= calls; ++n) {
    SetUp();
    machine.failDoorCall(n);
    deletions.deleteAll(machine.files);
    const int left = exists("a.mp3") + exists("b.mp3") + exists("c.mp3");
    EXPECT_EQ(left, 1) << n;
  }
}

}  // namespace
}  // namespace nerolith::library
