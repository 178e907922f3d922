// Selects the songs not yet played; tags the selected ones.
#pragma once

#include "library/song_list.h"
#include "platform/clock.h"

namespace nerolith::library {

/// Actions of the user on the song list, on the user-interface thread; each ends quietly. The
/// list's current position stays where it is. There are tags for positions 0 to 10000 only: a walk
/// that needs the tag of a later one ends there, and what it did stays done.
class SelectionFunctions {
 public:
  SelectionFunctions(SongList& songs, const platform::Clock& clock)
      : songs_(songs), clock_(clock) {}

  /// Selects every unplayed entry, deselects the played ones and gives the list the focus. Waits
  /// 0.1 s first, by the clock, without letting anything else run. The clock's midnight is not
  /// allowed for: begun within the last 0.1 s of the day, the wait never ends.
  void selectUnplayed();

  /// Sets or clears the played tag of the selected ones among the first `listCount` entries (the
  /// stored count, which may lag behind the list), then selects the current entry. Nothing while
  /// the stored count is below 1.
  void tagSelected() { setTags(true); }
  void untagSelected() { setTags(false); }

 private:
  void waitATenth() const;
  void setTags(bool played);

  SongList& songs_;
  const platform::Clock& clock_;
};

}  // namespace nerolith::library
