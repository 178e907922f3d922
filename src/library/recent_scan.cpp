#include "library/recent_scan.h"

#include <algorithm>
#include <system_error>

#include "base/failure.h"

namespace nerolith::library {

bool RecentScan::due() const {
  if (!base::isSet(live_.recentRule)) return false;
  return !scanned_ || scannedClearing_ != songs_.recentClearings() ||
         scannedDays_ != live_.recentDays;
}

RecentScan::Age RecentScan::ageOf(const std::string& path, double limit) const {
  try {
    // Single precision (steps of some minutes) is what the age limit has always been compared in.
    const double modified = static_cast<float>(files_.lastModified(path));
    return limit < modified ? Age::Recent : Age::Old;
  } catch (const base::Failure& failure) {
    const bool noAnswer = failure.code() == static_cast<int>(std::errc::timed_out);
    return noAnswer ? Age::NoAnswer : Age::Old;
  }
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
    const Age age = ageOf(songs_.pathOf(entries[static_cast<std::size_t>(i)]), limit);
    // Each further file of a dead share would cost its seconds again.
    if (age == Age::NoAnswer) break;
    songs_.setRecent(i, age == Age::Recent);
    if (age == Age::Recent) songs_.anyRecent = true;
  }
}

}  // namespace nerolith::library
