// What lies in a folder, read in one pass.
#pragma once

#include <string>
#include <vector>

namespace nerolith::windows {

/// Names of the folders in `path` (tidy, see file_path.h), links to folders among them, without
/// hidden ones, sorted. Fails when the folder cannot be opened or read to its end.
std::vector<std::string> foldersIn(const std::string& path);

/// Names of the files in `path` that match `patterns` (as in `base::FilePattern`), without hidden
/// ones, sorted. Short names (8.3) play no role: what the user does not see does not match.
std::vector<std::string> filesIn(const std::string& path, const std::string& patterns);

}  // namespace nerolith::windows
