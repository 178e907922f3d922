#include "platform/windows/windows_power_request.h"

#include <gtest/gtest.h>
#include <string>

#include "platform/windows/wide_text.h"

namespace nerolith::windows {
namespace {

using Why = platform::PowerRequest::Why;

std::string trace;
HANDLE madeRequest = nullptr;
BOOL setWorks = TRUE;

HANDLE WINAPI create(PREASON_CONTEXT reason) {
  EXPECT_EQ(reason->Version, static_cast<ULONG>(POWER_REQUEST_CONTEXT_VERSION));
  EXPECT_EQ(reason->Flags, static_cast<DWORD>(POWER_REQUEST_CONTEXT_SIMPLE_STRING));
  trace += "create '" + utf8Text(reason->Reason.SimpleReasonString) + "' | ";
  return madeRequest;
}
BOOL WINAPI set(HANDLE request, POWER_REQUEST_TYPE type) {
  EXPECT_EQ(request, madeRequest);
  trace += "set " + std::to_string(type) + " | ";
  return setWorks;
}
BOOL WINAPI clear(HANDLE request, POWER_REQUEST_TYPE type) {
  EXPECT_EQ(request, madeRequest);
  trace += "clear " + std::to_string(type) + " | ";
  return TRUE;
}
EXECUTION_STATE WINAPI setThreadState(EXECUTION_STATE state) {
  trace += (state & ES_SYSTEM_REQUIRED) ? "thread awake | " : "thread as before | ";
  EXPECT_TRUE(state & ES_CONTINUOUS);
  EXPECT_FALSE(state & ES_DISPLAY_REQUIRED);
  return ES_CONTINUOUS;
}
BOOL WINAPI closeRequest(HANDLE) {
  trace += "close | ";
  return TRUE;
}

struct Power : testing::Test {
  Power() {
    trace.clear();
    madeRequest = reinterpret_cast<HANDLE>(0x40);
    setWorks = TRUE;
  }
  PowerCalls calls{&create, &set, &clear, &setThreadState, &closeRequest};
};

TEST_F(Power, ARequestIsMadeWithItsReasonAndGivenBack) {
  WindowsPowerRequest power(calls);
  power.hold(Why::Playing);
  EXPECT_EQ(trace, "create 'Music is playing' | set 1 | ");
  trace.clear();
  power.release();
  EXPECT_EQ(trace, "clear 1 | close | ");
  trace.clear();
  power.hold(Why::Recording);
  EXPECT_EQ(trace, "create 'Sound is being recorded' | set 1 | ");
}

TEST_F(Power, WhatIsHeldEndsWithTheObjectAndOnlyOnce) {
  {
    WindowsPowerRequest power(calls);
    power.hold(Why::Playing);
    trace.clear();
  }
  EXPECT_EQ(trace, "clear 1 | close | ");
  trace.clear();
  { WindowsPowerRequest power(calls); }
  EXPECT_EQ(trace, "");
}

TEST_F(Power, WhereNoRequestIsToBeHadTheThreadAsks) {
  madeRequest = INVALID_HANDLE_VALUE;
  WindowsPowerRequest power(calls);
  power.hold(Why::Playing);
  power.release();
  EXPECT_EQ(trace, "create 'Music is playing' | thread awake | thread as before | ");
}

TEST_F(Power, ARequestThatTheSystemRefusesIsClosedAndTheThreadAsks) {
  setWorks = FALSE;
  WindowsPowerRequest power(calls);
  power.hold(Why::Playing);
  EXPECT_EQ(trace, "create 'Music is playing' | set 1 | close | thread awake | ");
}

TEST_F(Power, ASystemWithoutTheCallsIsAskedByTheThread) {
  calls.create = nullptr;
  WindowsPowerRequest power(calls);
  power.hold(Why::Recording);
  EXPECT_EQ(trace, "thread awake | ");
}

/// What this thread asks of the system; asking changes nothing.
EXECUTION_STATE threadState() {
  const EXECUTION_STATE state = SetThreadExecutionState(ES_CONTINUOUS);
  SetThreadExecutionState(state | ES_CONTINUOUS);
  return state;
}

TEST(PowerOfThisSystem, TheThreadsStateIsReallySetAndReset) {
  SetThreadExecutionState(ES_CONTINUOUS);
  PowerCalls calls = PowerCalls::ofTheSystem();
  calls.create = nullptr;
  WindowsPowerRequest power(calls);
  power.hold(Why::Playing);
  EXPECT_TRUE(threadState() & ES_SYSTEM_REQUIRED);
  power.release();
  EXPECT_FALSE(threadState() & ES_SYSTEM_REQUIRED);
}

TEST(PowerOfThisSystem, HoldsAndReleases) {
  WindowsPowerRequest power;
  power.hold(Why::Playing);
  power.release();
  power.hold(Why::Recording);
}

}  // namespace
}  // namespace nerolith::windows
