// How long many files play.
#pragma once

#include <vector>

namespace nerolith::platform {

/// A count that runs: made by a `FilterGraphFactory`, asked until all is told, or destroyed sooner;
/// then no file is open any more, unless one hangs: a quarter of a second is waited for it.
/// User-interface thread only; a backend may read on threads of its own.
class DurationReader {
 public:
  virtual ~DurationReader() = default;

  /// Durations of the files that come next, in order, in seconds, > 0. Takes a short moment (the
  /// window is not to be left alone for longer) and returns what is known by then; empty: nothing
  /// more yet, ask again. Fails when the next file is one that cannot be rendered, or that has not
  /// answered for 5 s. Not to be asked again after a failure, nor when all is told.
  virtual std::vector<double> take() = 0;
};

}  // namespace nerolith::platform
