// The files that are to be deleted when the program closes.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/file_system.h"

namespace nerolith::library {

/// Lives as long as the program and is kept nowhere else: a crash deletes nothing. Marking touches
/// no file; `deleteAll` at close is the only moment of deletion. User-interface thread only.
class DeletionList {
 public:
  void mark(std::string path) { paths_.push_back(std::move(path)); }

  /// Deletes every marked file that exists, read-only, hidden and system ones too. What fails (a
  /// file in use, no permission) is skipped and the next one is tried.
  void deleteAll(platform::FileSystem& files) const;

  const std::vector<std::string>& paths() const { return paths_; }

 private:
  // Begins with two empty slots, at whose paths no file exists.
  std::vector<std::string> paths_ = std::vector<std::string>(2);
};

}  // namespace nerolith::library
