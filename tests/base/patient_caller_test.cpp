#include "base/patient_caller.h"

#include <gtest/gtest.h>

#include <future>

#include "base/failure.h"

namespace nerolith::base {
namespace {

using namespace std::chrono_literals;

TEST(PatientCaller, BringsTheResultOrTheFailure) {
  PatientCaller caller;
  EXPECT_EQ(caller.wait("x", [] { return 42; }), 42);
  EXPECT_THROW(caller.wait("x", []() -> int { throw Failure("no", 7); }), Failure);
  EXPECT_EQ(caller.wait("x", [] { return std::string("again"); }), "again");
}

TEST(PatientCaller, LeavesACallBehindThatDoesNotComeBackAndGoesOn) {
  PatientCaller caller(20ms);
  std::promise<void> answer;
  const auto answered = std::make_shared<std::shared_future<void>>(answer.get_future());
  const auto finished = std::make_shared<std::promise<void>>();
  try {
    caller.wait("/mnt/nas", [answered, finished] {
      answered->wait();
      finished->set_value();
    });
    FAIL() << "no failure";
  } catch (const Failure& failure) {
    EXPECT_STREQ(failure.what(), "/mnt/nas: the disk or network share does not answer");
    EXPECT_EQ(failure.code(), ETIMEDOUT);
  }
  PatientCaller patient(5s);
  EXPECT_EQ(patient.wait("next", [] { return 1; }), 1);
  answer.set_value();
  EXPECT_EQ(finished->get_future().wait_for(5s), std::future_status::ready);
}

TEST(PatientCaller, AnswersTheNextCallWhileTheLastIsStillOut) {
  PatientCaller caller(500ms);
  std::promise<void> answer;
  const auto answered = std::make_shared<std::shared_future<void>>(answer.get_future());
  EXPECT_THROW(caller.wait("/mnt/nas", [answered] { answered->wait(); }), Failure);
  EXPECT_EQ(caller.wait("/home", [] { return 1; }), 1);
  answer.set_value();
}

}  // namespace
}  // namespace nerolith::base
