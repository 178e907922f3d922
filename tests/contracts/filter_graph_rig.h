// The machine that the decks' contract is held against.
#pragma once

#include <string>

#include "platform/filter_graph.h"

namespace nerolith::contracts {

/// A machine to hold the contract against. A backend's test derives a default-constructible rig and
/// writes INSTANTIATE_TYPED_TEST_SUITE_P(Name, FilterGraphContract, ItsRig).
class FilterGraphRig {
 public:
  virtual ~FilterGraphRig() = default;

  /// Empty, or why this machine cannot play at all; the tests then report themselves skipped.
  virtual std::string unavailable() const { return {}; }
  virtual platform::FilterGraphFactory& factory() = 0;

  /// The path of a playable file of so many seconds.
  virtual std::string soundFile(double seconds) = 0;
  /// Paths of files that cannot be played: one that does not exist, and one that is no sound.
  virtual std::string missingFile() = 0;
  virtual std::string brokenFile() = 0;

  /// Lets so many seconds of playing pass.
  virtual void pass(double seconds) = 0;
  /// How far, in seconds, a running position may be off.
  virtual double slack() const = 0;
};

}  // namespace nerolith::contracts
