#include "library/selection_functions.h"

#include <chrono>
#include <stdexcept>

#include "controls/event_count.h"
#include "library/browser_window.h"

namespace nerolith::library {
namespace {

using namespace std::chrono_literals;

struct Selection : BrowserWindow {
  SelectionFunctions functions{songs, machine.clock};

  void SetUp() override {
    BrowserWindow::SetUp();
    machine.windows.add(form.form);
    machine.clock.setReadingTime(1ms);
  }
  void TearDown() override { machine.windows.remove(form.form); }

  std::string selected() {
    std::string marks;
    for (int i = 0; i < form.List1.count(); ++i) marks += form.List1.selected(i) ? 'x' : '-';
    return marks;
  }
  std::string tags(int count) {
    std::string marks;
    for (int i = 0; i < count; ++i) marks += songs.played(i) ? 'x' : '-';
    return marks;
  }
};

TEST_F(Selection, SelectUnplayedSelectsEveryEntryOfAFreshlyFilledList) {
  functions.selectUnplayed();
  EXPECT_EQ(selected(), "xxx");
}

TEST_F(Selection, SelectUnplayedDeselectsThePlayedOnes) {
  songs.setPlayed(1, true);
  form.List1.selectAll();
  functions.selectUnplayed();
  EXPECT_EQ(selected(), "x-x");
}

TEST_F(Selection, SelectUnplayedKeepsThePositionTellsTheListOnceAndFocusesIt) {
  form.List1.setListIndex(2);
  machine.windows.focus(form.Drive1);
  controls::EventCount clicks(form.List1.click), told(form.List1.selectionChanged);
  functions.selectUnplayed();
  EXPECT_EQ(form.List1.listIndex(), 2);
  EXPECT_EQ(clicks(), 0);
  EXPECT_EQ(told(), 1);
  EXPECT_EQ(machine.windows.focused(), &form.List1);
}

TEST_F(Selection, SelectUnplayedStoresTheListCount) {
  form.List1.addItem("d.mp3");
  ASSERT_EQ(songs.listCount(), 3);
  functions.selectUnplayed();
  EXPECT_EQ(songs.listCount(), 4);
}

TEST_F(Selection, SelectUnplayedWaitsATenthOfASecondWithoutLettingAnythingRun) {
  int ticks = 0;
  const auto ticking = form.Timer1.tick.subscribe([&] { ++ticks; });
  const auto start = machine.timeline.now();
  functions.selectUnplayed();
  EXPECT_GE(machine.timeline.now() - start, 100ms);
  EXPECT_LE(machine.timeline.now() - start, 105ms);
  EXPECT_EQ(ticks, 0);
}

/// A night in which the clock goes on past midnight.
struct MidnightClock : platform::Clock {
  mutable int readings = 0;
  double secondsSinceMidnight() const override {
    if (++readings > 1000) throw std::logic_error("still waiting");
    return readings == 1 ? 86399.95 : readings * 0.001;
  }
  double today() const override { return 45000; }
};

TEST_F(Selection, TheWaitBegunWithinTheLastTenthBeforeMidnightNeverEnds) {
  MidnightClock night;
  SelectionFunctions atNight(songs, night);
  EXPECT_THROW(atNight.selectUnplayed(), std::logic_error);
  EXPECT_EQ(selected(), "---");
}

TEST_F(Selection, TaggingReachesTheSelectedEntriesOnlyAndUntaggingLikewise) {
  form.List1.setListIndex(0);
  form.List1.setSelected(0, true);
  form.List1.setSelected(2, true);
  functions.tagSelected();
  EXPECT_EQ(tags(3), "x-x");
  form.List1.setSelected(2, false);
  functions.untagSelected();
  EXPECT_EQ(tags(3), "--x");
}

TEST_F(Selection, TaggingThenSelectsTheCurrentEntry) {
  form.List1.setListIndex(1);
  functions.tagSelected();
  EXPECT_EQ(selected(), "-x-");
  EXPECT_EQ(tags(3), "---");
}

TEST_F(Selection, TaggingWithoutACurrentEntrySelectsNothing) {
  form.List1.setListIndex(-1);
  functions.tagSelected();
  EXPECT_EQ(selected(), "---");
}

TEST_F(Selection, TaggingGoesByTheStoredCount) {
  form.List1.addItem("d.mp3");
  form.List1.selectAll();
  functions.tagSelected();
  EXPECT_EQ(tags(4), "xxx-");
  EXPECT_EQ(songs.listCount(), 3);
}

TEST_F(Selection, TaggingWithAStoredCountOfNoneDoesNothing) {
  songs.refill({});
  form.List1.addItem("a.mp3");
  form.List1.setListIndex(0);
  functions.tagSelected();
  EXPECT_EQ(selected(), "-");
}

TEST_F(Selection, TaggingAListThatIsShorterThanItsStoredCountTagsWhatIsThere) {
  form.List1.removeItem(2);
  form.List1.selectAll();
  functions.tagSelected();
  EXPECT_EQ(tags(3), "xx-");
}

TEST_F(Selection, TheFunctionsEndAtPositionTenThousandQuietly) {
  songs.refill(std::vector<std::string>(10'005, "s.mp3"));
  functions.selectUnplayed();
  EXPECT_EQ(form.List1.selectedCount(), 10'001);
  EXPECT_FALSE(form.List1.hidden());
  form.List1.selectAll();
  functions.tagSelected();
  EXPECT_TRUE(songs.played(10'000));
}

}  // namespace
}  // namespace nerolith::library
