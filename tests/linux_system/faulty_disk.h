// A disk that fails, or a program that is killed, at a chosen call.
#pragma once

#include <atomic>

namespace nerolith::system {

/// While one lives, the calls of this process that change files are counted (open for writing,
/// write, fsync, fchmod, linkat, rename, ftruncate), on all threads. One at a time.
class FaultyDisk {
 public:
  enum class Fault { None, Fails, Kills };

  /// The n-th call from now (1: the next) fails with ENOSPC, or kills the process; a write has
  /// written half of its bytes then.
  explicit FaultyDisk(Fault fault = Fault::None, int n = 0);
  ~FaultyDisk();
  FaultyDisk(const FaultyDisk&) = delete;
  FaultyDisk& operator=(const FaultyDisk&) = delete;

  int calls() const;
  /// From now on the disk knows no files without a name.
  void refuseNamelessFiles();
};

}  // namespace nerolith::system
