// The list of songs and what is known of each position: played tags and recent-file marks.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/flag16.h"
#include "controls/list_box.h"
#include "controls/text_box.h"

namespace nerolith::library {

enum class ListMode { Folder, Playlist };

/// The name of a song without its folder and its ending: the text after the last separator up to
/// the last "."; the whole text when there is no "." in it.
std::string displayName(std::string_view entry, char separator);

/// Keeps `List1` and, in step with its positions, 10001 played tags and recent marks (positions 0
/// to 10000). The list itself may be longer; a tag beyond 10000 is an error (base::Failure).
/// In folder mode an entry is a bare file name and `Text2` the folder before it, separator
/// included; in playlist mode an entry is a full path.
class SongList {
 public:
  static constexpr int kTagged = 10001;

  SongList(controls::ListBox& list1, controls::TextBox& text1, controls::TextBox& text2);
  SongList(const SongList&) = delete;
  SongList& operator=(const SongList&) = delete;

  controls::ListBox& list1() { return list1_; }
  const controls::ListBox& list1() const { return list1_; }
  /// The entry text of the song last started.
  controls::TextBox& text1() { return text1_; }
  /// The folder prefix.
  controls::TextBox& text2() { return text2_; }

  ListMode mode() const { return mode_; }
  void setMode(ListMode mode);

  /// The list count that operations store when they refill or walk the list; it may lag behind.
  int listCount() const { return listCount_; }
  int readListCount() { return listCount_ = list1_.count(); }

  /// Throws outside 0..10000.
  bool played(int position) const;
  void setPlayed(int position, bool played);
  void clearPlayedTags();
  /// Whether any of the first `count` positions is unplayed; stops at 10000 with an error, as every
  /// walk over the tags does.
  bool anyUnplayed(int count) const;

  bool recent(int position) const;
  void setRecent(int position, bool recent);
  /// Clears all marks and `anyRecent`.
  void clearRecentFlags();
  bool anyRecent = false;
  /// How often the marks were cleared, so that a scan can tell whether they are still its own.
  unsigned recentClearings() const { return recentClearings_; }

  /// Random play found nothing left to play; the next start clears it and all played tags.
  bool listExhausted = false;

  /// A mouse button is held on the list (followed here), or the total playtime is being counted.
  bool held = false;

  /// Position of the song that plays, -1 when none of the entries does. A refill finds the song
  /// again by its path, so that the mark survives a Refresh and a visit to another folder.
  int playingPosition() const { return playingPosition_; }
  void setPlayingPosition(int position);

  /// The full path of an entry, by mode.
  std::string pathOf(std::string_view entry) const;

  void deselectAll();
  /// Selects the first entry that is the current song (`Text1`) and makes it current; if none is,
  /// position 0 becomes current. On an empty list there is no position 0, and none is current.
  void reselectCurrent();

  /// Replaces the entries; the tags and marks are cleared. Hidden meanwhile.
  void refill(std::vector<std::string> entries);
  /// The same with a playlist's entries, which are full paths from now on; none is current then.
  void fillFromPlaylist(std::vector<std::string> entries);

 private:
  controls::RowMarks marksOf(int position) const;
  void findPlaying();

  controls::ListBox& list1_;
  controls::TextBox& text1_;
  controls::TextBox& text2_;
  ListMode mode_ = ListMode::Folder;
  int listCount_ = 0;
  int playingPosition_ = -1;
  std::string playingPath_;
  unsigned recentClearings_ = 0;
  std::vector<base::Flag16> playedTags_;
  std::vector<base::Flag16> recentFlags_;
  base::Subscription mouseDown_, mouseUp_;
};

}  // namespace nerolith::library
