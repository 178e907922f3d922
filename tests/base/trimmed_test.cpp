#include "base/trimmed.h"

#include <gtest/gtest.h>

namespace nerolith::base {
namespace {

TEST(Trimmed, LeavesOutTheBlanksAtBothEndsOnly) {
  EXPECT_EQ(trimmed("  a b "), "a b");
  EXPECT_EQ(trimmed("a"), "a");
  EXPECT_EQ(trimmed("   "), "");
  EXPECT_EQ(trimmed(""), "");
}

TEST(Trimmed, OnlyTheGivenSignsAreBlanks) {
  EXPECT_EQ(trimmed("\t a "), "\t a");
  EXPECT_EQ(trimmed("\t a ", " \t"), "a");
}

}  // namespace
}  // namespace nerolith::base
