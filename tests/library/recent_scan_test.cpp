#include "library/recent_scan.h"

#include <chrono>
#include <system_error>

#include "base/failure.h"
#include "controls/event_count.h"
#include "library/browser_window.h"

namespace nerolith::library {
namespace {

constexpr double kToday = 46000;

struct Recent : BrowserWindow {
  settings::LiveSettings live;
  RecentScan scan{songs, machine.files, machine.clock, live};

  void SetUp() override {
    BrowserWindow::SetUp();
    machine.clock.set(kToday, std::chrono::hours(23));
    live.recentRule = base::kTrue;
    live.recentDays = 30;
    changed("a.mp3", kToday - 1);
    changed("b.mp3", kToday - 30);
    changed("c.mp3", kToday - 31);
  }

  void changed(const std::string& name, double day) {
    machine.files.addFile("C:\\Music\\" + name, {.modified = day});
  }
};

TEST_F(Recent, AFileChangedWithinTheLimitIsRecentAndOneOnItIsNot) {
  scan.scan();
  EXPECT_TRUE(songs.recent(0));
  EXPECT_FALSE(songs.recent(1));
  EXPECT_FALSE(songs.recent(2));
  EXPECT_TRUE(songs.anyRecent);
}

TEST_F(Recent, TheLimitCountsFromTodaysDateWhateverTheTimeOfDay) {
  changed("b.mp3", kToday - 30 + 0.01);
  scan.scan();
  EXPECT_TRUE(songs.recent(1));
}

TEST_F(Recent, TimesAreComparedInSinglePrecision) {
  // Singles lie 1/256 day apart here: less than half of that after the limit is the limit itself.
  changed("b.mp3", kToday - 30 + 0.0019);
  changed("c.mp3", kToday - 30 + 0.0020);
  scan.scan();
  EXPECT_FALSE(songs.recent(1));
  EXPECT_TRUE(songs.recent(2));
}

TEST_F(Recent, NoRecentFileClearsWhatAScanBeforeFound) {
  scan.scan();
  changed("a.mp3", kToday - 99);
  scan.scan();
  EXPECT_FALSE(songs.anyRecent);
  EXPECT_FALSE(songs.recent(0));
}

TEST_F(Recent, AFileThatCannotBeReadIsNotRecentAndTheScanGoesOn) {
  changed("c.mp3", kToday);
  songs.setRecent(0, true);
  machine.files.remove("C:\\Music\\a.mp3");
  scan.scan();
  EXPECT_FALSE(songs.recent(0));
  EXPECT_TRUE(songs.recent(2));
  EXPECT_TRUE(songs.anyRecent);
}

TEST_F(Recent, AnyFailingReadingCostsItsOwnFileOnly) {
  for (const char* name : {"a.mp3", "b.mp3", "c.mp3"}) changed(name, kToday);
  for (int n = 1; n <= 3; ++n) {
    machine.failDoorCall(static_cast<std::uint64_t>(n));
    scan.scan();
    for (int i = 0; i < 3; ++i) EXPECT_EQ(songs.recent(i), i != n - 1) << n;
  }
}

TEST_F(Recent, APlaylistsEntriesAreFullPathsAndThePrefixIsEmptied) {
  importPlaylist({"C:\\Music\\c.mp3", "C:\\Music\\a.mp3"});
  scan.scan();
  EXPECT_EQ(form.Text2.text(), "");
  EXPECT_FALSE(songs.recent(0));
  EXPECT_TRUE(songs.recent(1));
}

TEST_F(Recent, AFolderKeepsItsPrefix) {
  scan.scan();
  EXPECT_EQ(form.Text2.text(), "C:\\Music\\");
}

TEST_F(Recent, TheCurrentPositionStaysAndNothingIsClickedOrSelected) {
  form.List1.setListIndex(1);
  const int selected = form.List1.selectedCount();
  const controls::EventCount clicks(form.List1.click), marks(form.List1.marksChanged);
  scan.scan();
  EXPECT_EQ(form.List1.listIndex(), 1);
  EXPECT_EQ(form.List1.selectedCount(), selected);
  EXPECT_EQ(clicks(), 0);
  EXPECT_EQ(marks(), 1);
  EXPECT_FALSE(form.List1.hidden());
}

TEST_F(Recent, AnEmptyListHasNothingRecent) {
  songs.anyRecent = true;
  songs.refill({});
  songs.anyRecent = true;
  scan.scan();
  EXPECT_FALSE(songs.anyRecent);
}

TEST_F(Recent, EntriesAboveTheLastTagAreNotScanned) {
  Names names(10'001, "c.mp3");
  names.emplace_back("a.mp3");
  songs.refill(names);
  scan.scan();
  EXPECT_FALSE(songs.anyRecent);
  EXPECT_EQ(songs.listCount(), 10'002);
  names[10'000] = "a.mp3";
  songs.refill(names);
  scan.scan();
  EXPECT_TRUE(songs.recent(10'000));
}

TEST_F(Recent, AScanIsDueOnceForEachFilledList) {
  EXPECT_TRUE(scan.due());
  scan.scanIfDue();
  EXPECT_FALSE(scan.due());
  browser.setFolder("C:\\Music\\Jazz");
  EXPECT_TRUE(scan.due());
  scan.scanIfDue();
  importPlaylist({"C:\\Music\\a.mp3"});
  EXPECT_TRUE(scan.due());
}

TEST_F(Recent, AScanIsDueAfterARefreshWhichClearsTheMarks) {
  importPlaylist({"C:\\Music\\a.mp3"});
  scan.scan();
  browser.refresh();
  EXPECT_FALSE(songs.recent(0));
  EXPECT_TRUE(scan.due());
  scan.scanIfDue();
  EXPECT_TRUE(songs.recent(0));
}

TEST_F(Recent, AScanIsDueWhenTheAgeLimitChanged) {
  scan.scan();
  live.recentDays = 31;
  EXPECT_TRUE(scan.due());
  scan.scanIfDue();
  EXPECT_TRUE(songs.recent(1));
  live.recentAfter = 9;
  EXPECT_FALSE(scan.due());
}

TEST_F(Recent, NoScanIsDueWhileTheRuleIsOff) {
  live.recentRule = base::kFalse;
  EXPECT_FALSE(scan.due());
  scan.scanIfDue();
  EXPECT_FALSE(songs.anyRecent);
  live.recentRule = base::kTrue;
  EXPECT_TRUE(scan.due());
}

TEST_F(Recent, AnAgeLimitAtTheEndOfItsRangeIsALimitToo) {
  live.recentDays = 32767;
  changed("c.mp3", 0);
  scan.scan();
  EXPECT_TRUE(songs.recent(1));
  EXPECT_FALSE(songs.recent(2));
  live.recentDays = -32768;
  scan.scan();
  EXPECT_FALSE(songs.anyRecent);
}

/// A share whose server has gone: every file costs its whole patience.
class DeadShare : public platform::simulated::SimulatedFiles {
 public:
  using SimulatedFiles::SimulatedFiles;
  double lastModified(const std::string&) const override {
    ++asked;
    throw base::Failure("the share does not answer", static_cast<int>(std::errc::timed_out));
  }
  mutable int asked = 0;
};

TEST_F(Recent, AShareThatDoesNotAnswerIsAskedOnce) {
  DeadShare share('\\', machine.doorway);
  RecentScan scanOfShare{songs, share, machine.clock, live};
  scanOfShare.scan();
  EXPECT_EQ(share.asked, 1);
  EXPECT_FALSE(songs.anyRecent);
  EXPECT_FALSE(scanOfShare.due());
}

}  // namespace
}  // namespace nerolith::library
