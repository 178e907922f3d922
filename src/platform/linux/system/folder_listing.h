// What lies in a folder, read in one pass.
#pragma once

#include <string>
#include <vector>

namespace nerolith::system {

/// Names of the folders in `path`, links to folders among them, without hidden ones (a dot in
/// front), sorted. Fails when the folder cannot be opened or read to its end.
std::vector<std::string> foldersIn(const std::string& path);

/// Names of the regular files in `path`, links to such files among them, without hidden ones, that
/// match `patterns` (as in `base::FilePattern`), sorted. A link that leads nowhere is no file.
std::vector<std::string> filesIn(const std::string& path, const std::string& patterns);

}  // namespace nerolith::system
