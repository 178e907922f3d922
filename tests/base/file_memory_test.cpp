#include "base/file_memory.h"

#include <gtest/gtest.h>

namespace nerolith::base {
namespace {

TEST(FileMemory, KnowsAFileThatIsStillTheSame) {
  FileMemory memory;
  EXPECT_EQ(memory.recall("a", {1, 2, 3}), std::nullopt);
  memory.keep("a", {1, 2, 3}, 180.5);
  EXPECT_EQ(memory.recall("a", {1, 2, 3}), 180.5);
}

TEST(FileMemory, KnowsNothingOfAFileThatIsAnother) {
  FileMemory memory;
  memory.keep("a", {1, 2, 3}, 180.5);
  EXPECT_EQ(memory.recall("b", {1, 2, 3}), std::nullopt);
  EXPECT_EQ(memory.recall("a", {9, 2, 3}), std::nullopt) << "another size";
  EXPECT_EQ(memory.recall("a", {1, 9, 3}), std::nullopt) << "another time";
  EXPECT_EQ(memory.recall("a", {1, 2, 9}), std::nullopt) << "another file of this name";
  memory.keep("a", {1, 9, 3}, 20);
  EXPECT_EQ(memory.recall("a", {1, 9, 3}), 20);
}

}  // namespace
}  // namespace nerolith::base
