#include "controls/list_box.h"

#include <gtest/gtest.h>

#include <random>

#include "base/failure.h"
#include "controls/event_count.h"

namespace nerolith::controls {
namespace {

struct Songs {
  ListBox list;
  Songs() { list.setItems({"a", "b", "c", "d"}); }
};

TEST(ListBox, AnotherCurrentPositionRaisesClick) {
  Songs songs;
  const EventCount clicks(songs.list.click);
  songs.list.setListIndex(2);
  songs.list.setListIndex(2);
  songs.list.setListIndex(-1);
  EXPECT_EQ(clicks(), 2);
}

TEST(ListBox, SelectingAddingAndRemovingRaiseNoClick) {
  Songs songs;
  songs.list.setListIndex(3);
  const EventCount clicks(songs.list.click), starts(songs.list.dblClick);
  songs.list.setSelected(1, true);
  songs.list.selectAll();
  songs.list.deselectAll();
  songs.list.addItem("e");
  songs.list.removeItem(0);
  songs.list.removeItem(2);
  songs.list.clear();
  EXPECT_EQ(clicks(), 0);
  EXPECT_EQ(starts(), 0);
}

TEST(ListBox, APositionOutsideTheListFailsAndChangesNothing) {
  Songs songs;
  songs.list.setListIndex(1);
  const EventCount told(songs.list.selectionChanged);
  EXPECT_THROW(songs.list.setListIndex(4), base::Failure);
  EXPECT_THROW(songs.list.setListIndex(-2), base::Failure);
  EXPECT_THROW(songs.list.setSelected(-1, true), base::Failure);
  EXPECT_THROW(songs.list.removeItem(4), base::Failure);
  EXPECT_THROW(songs.list.item(-1), base::Failure);
  EXPECT_THROW(songs.list.selected(4), base::Failure);
  EXPECT_EQ(songs.list.listIndex(), 1);
  EXPECT_EQ(songs.list.count(), 4);
  EXPECT_EQ(told(), 0);
}

TEST(ListBox, NewEntriesHaveNoSelectionAndNoCurrentPosition) {
  Songs songs;
  songs.list.setListIndex(1);
  songs.list.selectAll();
  songs.list.setItems({"x", "y"});
  EXPECT_EQ(songs.list.listIndex(), -1);
  EXPECT_EQ(songs.list.selectedCount(), 0);
  EXPECT_FALSE(songs.list.selected(0));
}

TEST(ListBox, TheSelectedCountFollowsEveryWayToSelect) {
  Songs songs;
  songs.list.setSelected(1, true);
  songs.list.setSelected(1, true);
  songs.list.setSelected(3, true);
  EXPECT_EQ(songs.list.selectedCount(), 2);
  songs.list.removeItem(1);
  EXPECT_EQ(songs.list.selectedCount(), 1);
  EXPECT_TRUE(songs.list.selected(2));
  songs.list.selectAll();
  EXPECT_EQ(songs.list.selectedCount(), 3);
}

TEST(ListBox, AWalkTellsRenderersOnceAtItsEnd) {
  Songs songs;
  const EventCount items(songs.list.itemsChanged), selection(songs.list.selectionChanged),
      marks(songs.list.marksChanged);
  {
    const ListBox::Walk outer(songs.list);
    songs.list.addItem("e");
    {
      const ListBox::Walk inner(songs.list);
      songs.list.setSelected(0, true);
      songs.list.touchMarks();
    }
    EXPECT_TRUE(songs.list.hidden());
    EXPECT_EQ(items() + selection() + marks(), 0);
  }
  EXPECT_FALSE(songs.list.hidden());
  EXPECT_EQ(items(), 1);
  EXPECT_EQ(selection(), 1);
  EXPECT_EQ(marks(), 1);
}

TEST(ListBox, AWalkThatChangedNothingTellsNothing) {
  Songs songs;
  const EventCount items(songs.list.itemsChanged), selection(songs.list.selectionChanged),
      marks(songs.list.marksChanged);
  { const ListBox::Walk walk(songs.list); }
  EXPECT_EQ(items() + selection() + marks(), 0);
}

TEST(ListBox, ClickIsRaisedDuringAWalkToo) {
  Songs songs;
  const EventCount clicks(songs.list.click);
  const ListBox::Walk walk(songs.list);
  songs.list.setListIndex(2);
  EXPECT_EQ(clicks(), 1);
}

TEST(ListBox, TheUserMovesWithinTheListOnly) {
  Songs songs;
  songs.list.userMoveTo(2);
  songs.list.userMoveTo(99);
  songs.list.userMoveTo(-7);
  EXPECT_EQ(songs.list.listIndex(), 2);
  songs.list.setEnabled(false);
  songs.list.userMoveTo(0);
  EXPECT_EQ(songs.list.listIndex(), 2);
}

TEST(ListBox, StartingAnEntryMakesItCurrentFirst) {
  Songs songs;
  std::string heard;
  const auto click = songs.list.click.subscribe([&] { heard += "click "; });
  const auto start = songs.list.dblClick.subscribe(
      [&] { heard += "start " + std::to_string(songs.list.listIndex()); });
  songs.list.userActivate(3);
  songs.list.userActivate(4);
  songs.list.userActivate(-1);
  EXPECT_EQ(heard, "click start 3");
}

/// A list as anyone would write it: entries are taken out one at a time, from the top.
struct LiteralList {
  struct Entry {
    std::string text;
    bool selected, doomed;
  };
  std::vector<Entry> entries;
  int current = -1;

  void removeDoomed() {
    for (std::size_t i = 0; i < entries.size();) {
      if (!entries[i].doomed) {
        ++i;
        continue;
      }
      entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(i));
      if (current == static_cast<int>(i))
        current = -1;
      else if (current > static_cast<int>(i))
        --current;
    }
  }
};

TEST(ListBox, RemovingManyAtOnceIsTheSameAsOneByOne) {
  std::mt19937 random(20230315);
  const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
  for (int round = 0; round < 5000; ++round) {
    ListBox list;
    LiteralList literal;
    std::vector<char> flags;
    const int count = below(30), doomedOfFour = below(5);
    for (int i = 0; i < count; ++i) {
      literal.entries.push_back({std::to_string(i), below(2) == 0, below(4) < doomedOfFour});
      list.addItem(literal.entries.back().text);
      list.setSelected(i, literal.entries.back().selected);
      flags.push_back(literal.entries.back().doomed ? 1 : 0);
    }
    literal.current = below(count + 1) - 1;
    list.setListIndex(literal.current);
    // Flags for the first few entries leave the others alone.
    if (below(3) == 0) {
      flags.resize(static_cast<std::size_t>(below(count + 1)));
      for (std::size_t i = flags.size(); i < literal.entries.size(); ++i)
        literal.entries[i].doomed = false;
    }

    list.removeWhere(flags);
    literal.removeDoomed();

    ASSERT_EQ(list.count(), static_cast<int>(literal.entries.size())) << "round " << round;
    ASSERT_EQ(list.listIndex(), literal.current) << "round " << round;
    int selected = 0;
    for (int i = 0; i < list.count(); ++i) {
      const auto& entry = literal.entries[static_cast<std::size_t>(i)];
      ASSERT_EQ(list.item(i), entry.text) << "round " << round;
      ASSERT_EQ(list.selected(i), entry.selected) << "round " << round;
      selected += entry.selected ? 1 : 0;
    }
    ASSERT_EQ(list.selectedCount(), selected) << "round " << round;
  }
}

TEST(ListBox, OneThatSelectsOneHasTheCurrentEntrySelectedAndNoOther) {
  Songs songs;
  songs.list.setSelected(0, true);
  songs.list.setSelecting(ListBox::Selecting::One);
  EXPECT_EQ(songs.list.selectedCount(), 0);
  songs.list.setListIndex(2);
  songs.list.setSelected(1, true);
  songs.list.selectAll();
  EXPECT_EQ(songs.list.selectedCount(), 1);
  EXPECT_TRUE(songs.list.selected(2));
  EXPECT_FALSE(songs.list.selected(1));
  songs.list.deselectAll();
  EXPECT_TRUE(songs.list.selected(2));
  songs.list.removeItem(2);
  EXPECT_EQ(songs.list.selectedCount(), 0);
}

TEST(ListBox, AClickOnTheCurrentEntryIsAClickToo) {
  Songs songs;
  std::vector<int> rows;
  const auto clicks =
      songs.list.rowClick.subscribe([&](int row, MouseButton) { rows.push_back(row); });
  songs.list.setListIndex(1);
  songs.list.userClickRow(1, MouseButton::Left);
  songs.list.userClickRow(-1, MouseButton::Right);
  songs.list.userClickRow(4, MouseButton::Left);
  songs.list.setEnabled(false);
  songs.list.userClickRow(0, MouseButton::Left);
  EXPECT_EQ(rows, (std::vector<int>{1, -1}));
}

}  // namespace
}  // namespace nerolith::controls
