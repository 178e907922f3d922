// A disk that is soon full.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>

#include "endtoend/private_desktop.h"

namespace nerolith::endtoend {

/// A folder on a disk of one megabyte that the player alone sees: it is mounted for the program
/// that is started on this desktop afterwards, and gone with it. Where nothing may be mounted, the
/// system takes no more than a megabyte into any file of the program instead.
class SmallDisk {
 public:
  /// Before the player is started.
  explicit SmallDisk(PrivateDesktop& desktop);

  /// As the program names it.
  const std::filesystem::path& folder() const { return folder_; }
  /// The same from outside, while the program runs.
  std::filesystem::path seenBeside(pid_t program) const;
  /// For the report.
  std::string kind() const { return mounted_ ? "a full disk" : "a limit on the file's size"; }

 private:
  std::filesystem::path folder_;
  bool mounted_ = false;
};

}  // namespace nerolith::endtoend
