// Finds out which songs of the list are recent files.
#pragma once

#include "library/song_list.h"
#include "platform/clock.h"
#include "platform/file_system.h"
#include "settings/live_settings.h"

namespace nerolith::library {

/// Sets the recent mark of every entry whose file was changed within the last `recentDays` days.
/// Random play asks for it when it is about to draw: reading 10,000 times of change costs, so it
/// is done only when the marks have become stale.
class RecentScan {
 public:
  RecentScan(SongList& songs, platform::FileSystem& files, platform::Clock& clock,
             const settings::LiveSettings& live)
      : songs_(songs), files_(files), clock_(clock), live_(live) {}
  RecentScan(const RecentScan&) = delete;
  RecentScan& operator=(const RecentScan&) = delete;

  /// The rule is on, and since the last scan the marks were cleared (each refill and each Refresh
  /// clears them) or the age limit was changed.
  bool due() const;

  /// Scans now; never fails. Hides the list meanwhile, and in playlist mode empties the folder
  /// prefix. A file that cannot be read is not recent; one
  /// whose disk does not answer ends the scan. Entries above position 10000 have no mark:
  /// the scan ends before them. The list's current position stays what it was: the walk shows
  /// nothing, and the draw that follows sets a position of its own or none.
  void scan();

  void scanIfDue() {
    if (due()) scan();
  }

 private:
  enum class Age { Old, Recent, NoAnswer };
  Age ageOf(const std::string& path, double limit) const;

  SongList& songs_;
  platform::FileSystem& files_;
  platform::Clock& clock_;
  const settings::LiveSettings& live_;
  unsigned scannedClearing_ = 0;
  std::int16_t scannedDays_ = 0;
  bool scanned_ = false;
};

}  // namespace nerolith::library
