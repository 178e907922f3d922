#include "platform/windows/failure_text.h"

#include <gtest/gtest.h>

#include "platform/failure.h"

namespace nerolith::windows {
namespace {

TEST(FailureText, TheSystemsWordsEndWithoutStopOrLineBreak) {
  const std::string words = systemWords(ERROR_ACCESS_DENIED);
  ASSERT_FALSE(words.empty());
  EXPECT_GT(words.back(), ' ');
  EXPECT_NE(words.back(), '.');
}

TEST(FailureText, ANumberWithoutWordsIsShownAsOne) {
  EXPECT_EQ(systemWords(0x8004FFF1), "error 0x8004FFF1");
}

TEST(FailureText, OnlyFailedCallsAreFailures) {
  EXPECT_NO_THROW(require(S_OK, "x"));
  EXPECT_NO_THROW(require(S_FALSE, "x"));
  try {
    require(E_ACCESSDENIED, "song.mp3");
    FAIL() << "no failure";
  } catch (const platform::Failure& failure) {
    EXPECT_EQ(failure.code(), E_ACCESSDENIED);
    EXPECT_EQ(std::string(failure.what()).rfind("song.mp3: ", 0), 0u);
  }
}

}  // namespace
}  // namespace nerolith::windows
