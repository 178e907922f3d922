// What differs between the programs that the tests start: the same tests hear the Linux program and
// the Windows program under Wine. One implementation is linked into each test program.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "endtoend/mix_check.h"
#include "endtoend/private_desktop.h"

namespace nerolith::endtoend {

struct StoredSettings {
  int mode = 2;           // 1 Single, 2 Auto next, 3 Random
  double mixLead = 4;     // seconds
  double fadeLength = 2;  // seconds
  bool loop = false;
  int colour = 10;  // 0 to 15
  bool timeInverted = false;
  bool recentRule = false;         // recent files are mixed in and starred
  bool markDeletions = false;      // removing songs may mark their files for deletion
  std::filesystem::path folder{};  // shown at start; empty: none is stored
};

/// Writes them where the program looks for them, in place of all that was there. No program of
/// this desktop may be running.
void writeSettings(const PrivateDesktop& desktop, const StoredSettings& settings);

/// The text stored under a group ("application/section") and key once the program has ended; empty
/// when there is none.
std::string storedText(const PrivateDesktop& desktop, const std::string& group,
                       const std::string& key);

/// What starts the program with this command line.
Command startOf(const PrivateDesktop& desktop, std::vector<std::string> arguments);

/// A path as the program's command line and settings tell it. A folder ends in a separator.
std::string toldAs(const std::filesystem::path& path);

/// Ends what the program leaves running behind itself.
void endLeftovers(const PrivateDesktop& desktop);

/// What is demanded of this program's sound, where the machine under it sets the limit.
struct SoundDemands {
  MixTolerance mix;
  std::string lastMixed = "5 fifth.wma";  // of five songs in five formats that are mixed
  double cut = 0.002;                     // the same where a song is stopped or paused
  double stopped = 0.2;                   // seconds from the key to silence
  double resumed = 0.05;                  // seconds by which the song may go on elsewhere
  double resumeGap = 0;                   // seconds of silence soon after the song goes on
};
SoundDemands demands();

}  // namespace nerolith::endtoend
