// Runs a measurement again when the machine, not the player, spoilt it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "endtoend/mix_check.h"

namespace nerolith::endtoend {

struct Outcome {
  Complaints complaints;             // what is wrong with the player
  Complaints disturbances;           // what the machine did meanwhile
  std::vector<std::string> figures;  // what was measured, for the report
};

/// What became of up to three runs.
struct Verdict {
  bool passed = false;
  int spoilt = 0;         // runs with complaints while the machine was disturbed
  Complaints complaints;  // of the last run
};

/// A run without complaints passes, whatever the machine did. One with complaints fails, unless the
/// machine was disturbed: then it is repeated, and counted as spoilt. Three spoilt runs fail.
Verdict tryUpToThreeTimes(const std::function<Outcome()>& run);

/// The same as a test: records figures and spoilt runs and fails with the complaints.
void measure(const std::function<Outcome()>& run);

}  // namespace nerolith::endtoend
