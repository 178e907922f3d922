#include "library/recent_scan.h"

#include <algorithm>

#include "base/failure_policy.h"

namespace nerolith::library {

bool RecentScan::due() const {
  if (!base::isSet(live_.recentRule)) return false;
  return !scanned_ || scannedClearing_ != songs_.recentClearings() ||
         scannedDays_ != live_.recentDays;
}

bool RecentScan::isRecent(const std::string& path, double limit) const {
  bool recent = false;
  // Single precision (steps of some minutes) is what the age limit has always been compared in.
  base::goOn([&] { recent = limit < double{static_cast<float>(files_.lastModified(path))}; });
  return recent;
}

void RecentScan::scan() {
  const controls::ListBox::Walk hidden(songs_.list1());
  scanned_ = true;
  scannedClearing_ = songs_.recentClearings();
  scannedDays_ = live_.recentDays;

  songs_.anyRecent = false;
  const int count = std::min(songs_.readListCount(), SongList::kTagged);
  if (songs_.mode() == ListMode::Playlist) songs_.text2().setText("");
  const double limit = clock_.today() - live_.recentDays;
  const auto& entries = songs_.list1().items();
  for (int i = 0; i < count; ++i) {
    const bool recent = isRecent(songs_.pathOf(entries[static_cast<std::size_t>(i)]), limit);
    songs_.setRecent(i, recent);
    if (recent) songs_.anyRecent = true;
  }
}

}  // namespace nerolith::library
