#include "base/flag16.h"

#include <gtest/gtest.h>

namespace nerolith::base {
namespace {

TEST(Flag16, TrueHasAllBitsSet) {
  EXPECT_EQ(toFlag(true), -1);
  EXPECT_EQ(toFlag(false), 0);
}

TEST(Flag16, ComplementTogglesTrueAndFalse) {
  EXPECT_EQ(complement(kTrue), kFalse);
  EXPECT_EQ(complement(kFalse), kTrue);
}

TEST(Flag16, AnyValueButZeroIsSetAndItsComplementTooUnlessItIsTrue) {
  EXPECT_TRUE(isSet(1));
  EXPECT_TRUE(isSet(complement(1)));
  EXPECT_EQ(complement(1), -2);
}

}  // namespace
}  // namespace nerolith::base
