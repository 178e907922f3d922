// Takes the selected songs out of the list, and marks their files for deletion if the user wants.
#pragma once

#include <functional>
#include <vector>

#include "library/deletion_list.h"
#include "library/song_list.h"
#include "platform/dialogs.h"

namespace nerolith::library {

/// An action of the user; user-interface thread only.
class SongRemoval {
 public:
  /// `markingOn` tells whether the settings allow files to be marked for deletion.
  SongRemoval(SongList& songs, platform::Dialogs& dialogs, DeletionList& deletions,
              std::function<bool()> markingOn)
      : songs_(songs), dialogs_(dialogs), deletions_(deletions), markingOn_(std::move(markingOn)) {}
  SongRemoval(const SongRemoval&) = delete;
  SongRemoval& operator=(const SongRemoval&) = delete;

  /// Removes the selected entries in one pass, with the result of removing them one by one from the
  /// last to the first: played tags move with their entries (an entry from above position 10000
  /// comes unplayed), recent marks stay where they are, the current position and the playing mark
  /// follow their entries. The stored list count keeps the count before the removal.
  ///
  /// With marking on, the user is asked first. What was selected when the question was put is what
  /// goes, even if a mix has changed the selection meanwhile; if the entries themselves have
  /// changed, or the question cannot be put, nothing is removed and nothing marked.
  void removeSelected();

 private:
  /// One flag for each entry.
  using Flags = std::vector<char>;

  void remove();
  Flags selection() const;
  bool userWantsDeletion();
  void mark(const Flags& going);
  void shiftPlayedTags(const Flags& going);
  int playingPositionWithout(const Flags& going) const;

  SongList& songs_;
  platform::Dialogs& dialogs_;
  DeletionList& deletions_;
  std::function<bool()> markingOn_;
};

}  // namespace nerolith::library
