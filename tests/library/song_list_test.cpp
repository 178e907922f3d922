#include "library/song_list.h"

#include <gtest/gtest.h>

#include "base/failure.h"
#include "controls/event_count.h"

namespace nerolith::library {
namespace {

using controls::MouseButton;

struct Songs : testing::Test {
  controls::ListBox list1;
  controls::TextBox text1, text2;
  SongList songs{list1, text1, text2};

  void SetUp() override {
    text2.setText("/music/");
    songs.refill({"a.mp3", "b.mp3", "c.mp3"});
  }
};

TEST(DisplayName, IsTheNameBetweenTheLastSeparatorAndTheLastDot) {
  EXPECT_EQ(displayName("song.mp3", '\\'), "song");
  EXPECT_EQ(displayName("C:\\My.Music\\a.b.mp3", '\\'), "a.b");
  EXPECT_EQ(displayName("/music/a.mp3", '/'), "a");
  EXPECT_EQ(displayName(".mp3", '/'), "");
}

TEST(DisplayName, IsTheWholeTextWithoutADot) {
  EXPECT_EQ(displayName("songwma", '/'), "songwma");
  EXPECT_EQ(displayName("/music/songwma", '/'), "/music/songwma");
  EXPECT_EQ(displayName("", '/'), "");
}

TEST(DisplayName, ADotInAFolderOnlyCutsNothingOff) {
  EXPECT_EQ(displayName("/my.music/songwma", '/'), "songwma");
}

TEST_F(Songs, ThePathIsPrefixAndEntryInFolderModeAndTheEntryAloneInPlaylistMode) {
  EXPECT_EQ(songs.pathOf("a.mp3"), "/music/a.mp3");
  songs.setMode(ListMode::Playlist);
  EXPECT_EQ(songs.pathOf("/x/a.mp3"), "/x/a.mp3");
  songs.setMode(ListMode::Folder);
  EXPECT_EQ(songs.pathOf("a.mp3"), "/music/a.mp3");
}

TEST_F(Songs, TagsReachFromZeroToTenThousand) {
  songs.setPlayed(0, true);
  songs.setPlayed(10'000, true);
  EXPECT_TRUE(songs.played(0));
  EXPECT_TRUE(songs.played(10'000));
  for (const int outside : {-1, 10'001}) {
    EXPECT_THROW(songs.setPlayed(outside, true), base::Failure);
    EXPECT_THROW(songs.played(outside), base::Failure);
    EXPECT_THROW(songs.setRecent(outside, true), base::Failure);
    EXPECT_THROW(songs.recent(outside), base::Failure);
  }
  songs.clearPlayedTags();
  EXPECT_FALSE(songs.played(10'000));
}

TEST_F(Songs, LookingForAnUnplayedOneStopsAtTheFirstAndFailsBeyondTheTags) {
  EXPECT_TRUE(songs.anyUnplayed(20'000));
  for (int i = 0; i < SongList::kTagged; ++i) songs.setPlayed(i, true);
  EXPECT_FALSE(songs.anyUnplayed(10'001));
  EXPECT_THROW(songs.anyUnplayed(10'002), base::Failure);
  EXPECT_FALSE(songs.anyUnplayed(0));
}

TEST_F(Songs, AnOverlongListIsListedAndSelected) {
  songs.refill(std::vector<std::string>(20'000, "x.mp3"));
  list1.setSelected(19'999, true);
  EXPECT_EQ(list1.selectedCount(), 1);
  EXPECT_EQ(list1.rowMarks(19'999), controls::RowMarks{});
}

TEST_F(Songs, ReselectingTakesTheFirstThatIsTheCurrentSong) {
  songs.refill({"a.mp3", "b.mp3", "b.mp3"});
  text1.setText("b.mp3");
  songs.reselectCurrent();
  EXPECT_EQ(list1.listIndex(), 1);
  EXPECT_TRUE(list1.selected(1));
  EXPECT_FALSE(list1.selected(2));
}

TEST_F(Songs, ReselectingWithoutTheCurrentSongMakesTheFirstCurrentAndSelectsNothing) {
  text1.setText("gone.mp3");
  list1.setListIndex(2);
  songs.reselectCurrent();
  EXPECT_EQ(list1.listIndex(), 0);
  EXPECT_EQ(list1.selectedCount(), 0);
}

TEST_F(Songs, ARefillCountsTheEntriesAndClearsTagsAndMarks) {
  songs.setPlayed(1, true);
  songs.setRecent(1, true);
  songs.anyRecent = true;
  const unsigned clearings = songs.recentClearings();
  songs.refill({"x.mp3", "y.mp3"});
  EXPECT_EQ(songs.listCount(), 2);
  EXPECT_FALSE(songs.played(1));
  EXPECT_FALSE(songs.recent(1));
  EXPECT_FALSE(songs.anyRecent);
  EXPECT_EQ(songs.recentClearings(), clearings + 1);
}

TEST_F(Songs, TheHoldFollowsTheMouseButtonsOnTheList) {
  list1.mouseDown.raise(MouseButton::Right);
  EXPECT_TRUE(songs.held);
  list1.mouseUp.raise(MouseButton::Right);
  EXPECT_FALSE(songs.held);
}

TEST_F(Songs, RowsShowWhatIsKnownOfThem) {
  songs.setPlayed(0, true);
  songs.setRecent(1, true);
  songs.setPlayingPosition(2);
  EXPECT_EQ(list1.rowMarks(0), (controls::RowMarks{true, false, false}));
  EXPECT_EQ(list1.rowMarks(1), (controls::RowMarks{false, true, false}));
  EXPECT_EQ(list1.rowMarks(2), (controls::RowMarks{false, false, true}));
}

TEST_F(Songs, ThePlayingSongIsFoundByItsPathInAFolderAndInAPlaylist) {
  songs.setPlayingPosition(1);
  songs.refill({"/music/b.mp3", "b.mp3"});
  EXPECT_EQ(songs.playingPosition(), 1);
  songs.setMode(ListMode::Playlist);
  EXPECT_EQ(songs.playingPosition(), 0);
  songs.setPlayingPosition(-1);
  songs.setMode(ListMode::Folder);
  EXPECT_EQ(songs.playingPosition(), -1);
}

TEST_F(Songs, DeselectingAllReadsTheListCount) {
  list1.addItem("d.mp3");
  list1.selectAll();
  songs.deselectAll();
  EXPECT_EQ(list1.selectedCount(), 0);
  EXPECT_EQ(songs.listCount(), 4);
}

}  // namespace
}  // namespace nerolith::library
