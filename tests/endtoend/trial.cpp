#include "endtoend/trial.h"

#include <gtest/gtest.h>

#include <iostream>

namespace nerolith::endtoend {
namespace {

void say(const char* kind, const std::vector<std::string>& lines) {
  for (const std::string& line : lines) std::cout << "[ " << kind << " ] " << line << '\n';
}

}  // namespace

Verdict tryUpToThreeTimes(const std::function<Outcome()>& run) {
  Verdict verdict;
  for (int turn = 1; turn <= 3; ++turn) {
    const Outcome outcome = run();
    say("measured", outcome.figures);
    verdict.complaints = outcome.complaints;
    verdict.passed = outcome.complaints.empty();
    if (verdict.passed || outcome.disturbances.empty()) return verdict;
    ++verdict.spoilt;
    say("spoilt  ", {"run " + std::to_string(turn) + " of at most 3, by the machine:"});
    say("machine ", outcome.disturbances);
    say("meant   ", outcome.complaints);
  }
  return verdict;
}

void measure(const std::function<Outcome()>& run) {
  const Verdict verdict = tryUpToThreeTimes(run);
  ::testing::Test::RecordProperty("spoilt_runs", verdict.spoilt);
  if (verdict.passed) return;
  if (verdict.spoilt == 3) ADD_FAILURE() << "the machine spoilt all three runs";
  for (const std::string& complaint : verdict.complaints) ADD_FAILURE() << complaint;
}

}  // namespace nerolith::endtoend
