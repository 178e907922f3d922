#include "base/failure_policy.h"

#include <gtest/gtest.h>

#include <string>

namespace nerolith::base {
namespace {

TEST(FailurePolicy, GoOnSkipsOnlyTheFailingStep) {
  std::string done;
  EXPECT_TRUE(goOn([&] { done += "1"; }));
  EXPECT_FALSE(goOn([&] {
    done += "2";
    throw Failure("the door is shut");
  }));
  EXPECT_TRUE(goOn([&] { done += "3"; }));
  EXPECT_EQ(done, "123");
}

TEST(FailurePolicy, EndQuietlyKeepsWhatWasDoneBeforeTheFailure) {
  std::string done;
  const auto fail = [] { throw Failure("the door is shut"); };
  EXPECT_FALSE(endQuietly([&] {
    done += "1";
    fail();
    done += "2";
  }));
  EXPECT_EQ(done, "1");
}

TEST(FailurePolicy, AnErrorThatIsNoFailurePasses) {
  EXPECT_THROW(goOn([] { throw std::logic_error("a bug"); }), std::logic_error);
  EXPECT_THROW(endQuietly([] { throw std::logic_error("a bug"); }), std::logic_error);
}

TEST(FailurePolicy, AFailureCarriesTextAndCode) {
  const Failure failure("cannot open", 13);
  EXPECT_STREQ(failure.what(), "cannot open");
  EXPECT_EQ(failure.code(), 13);
}

}  // namespace
}  // namespace nerolith::base
