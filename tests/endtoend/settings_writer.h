// The player's settings as a test wants to find them.
#pragma once

#include <filesystem>
#include <string>

namespace nerolith::endtoend {

struct StoredSettings {
  int mode = 2;           // 1 Single, 2 Auto next, 3 Random
  double mixLead = 4;     // seconds
  double fadeLength = 2;  // seconds
  bool loop = false;
  int colour = 10;  // 0 to 15
  bool timeInverted = false;
  bool recentRule = false;         // recent files are mixed in and starred
  std::filesystem::path folder{};  // shown at start; empty: none is stored
};

/// Writes them as the player's own file, with its folder.
void writeSettings(const std::filesystem::path& file, const StoredSettings& settings);

/// The text stored under a group and key of such a file; empty when there is none.
std::string storedText(const std::filesystem::path& file, const std::string& group,
                       const std::string& key);

}  // namespace nerolith::endtoend
