#include "library/total_playtime.h"

#include <cmath>

#include "library/browser_window.h"

namespace nerolith::library {
namespace {

using platform::simulated::Door;

TEST(PlaytimeText, LeavesOutDaysAndHoursThatAreNone) {
  const std::vector<std::pair<double, std::string>> table = {
      {0, "00:00"},       {59, "00:59"},         {580, "09:40"},          {3599, "59:59"},
      {3600, "01:00:00"}, {3725, "01:02:05"},    {86399, "23:59:59"},     {86400, "1:00:00"},
      {86461, "1:01:01"}, {90061, "1:01:01:01"}, {864000 + 1, "10:00:01"}};
  for (const auto& [seconds, text] : table) EXPECT_EQ(playtimeText(seconds), text) << seconds;
}

TEST(PlaytimeText, RoundsToTheNearestSecondAndTiesToEven) {
  const std::vector<std::pair<double, std::string>> table = {
      {0.5, "00:00"},  {1.5, "00:02"},  {2.5, "00:02"},       {59.4, "00:59"},
      {59.5, "01:00"}, {59.6, "01:00"}, {3599.6, "01:00:00"}, {86399.6, "1:00:00"},
      {60.5, "01:00"}, {61.5, "01:02"}};
  for (const auto& [seconds, text] : table) EXPECT_EQ(playtimeText(seconds), text) << seconds;
}

TEST(PlaytimeText, ASumBelowZeroKeepsItsSign) {
  EXPECT_EQ(playtimeText(-15), "00:-15");
  EXPECT_EQ(playtimeText(-75), "-01:-15");
}

struct Playtime : BrowserWindow {
  settings::LiveSettings live;
  TotalPlaytime playtime{form, songs, live, machine.decks, machine.events};
  std::unique_ptr<platform::FilterGraph> deckA, deckB;  // the player's own two

  void SetUp() override {
    BrowserWindow::SetUp();
    for (const char* name : {"a.mp3", "b.mp3", "c.mp3"})
      machine.files.addFile(std::string("C:\\Music\\") + name, {.duration = 200});
    deckA = machine.decks.createFilterGraph();
    deckB = machine.decks.createFilterGraph();
    machine.windows.add(form.form);
    live.modeCode = "2";
    machine.clearTrace();
  }
  void TearDown() override { machine.windows.remove(form.form); }

  std::string countAll() {
    form.List1.selectAll();
    playtime.count();
    return form.Label4.caption();
  }
  /// What the next ticks of the window's timer, that is the next songs, find.
  base::Subscription onTick(std::function<void()> body) {
    machine.timeline.setYieldTime(std::chrono::milliseconds(100));
    return form.Timer1.tick.subscribe(std::move(body));
  }
};

TEST_F(Playtime, EachSongIsShortenedByItsMixAndTheLastPlaysOut) { EXPECT_EQ(countAll(), "09:40"); }

TEST_F(Playtime, WithLoopOnTheLastSongIsMixedToo) {
  live.loop = base::kTrue;
  EXPECT_EQ(countAll(), "09:30");
}

TEST_F(Playtime, InSingleModeTheSumExceedsThePlainOneByTheLeadUnlessLoopIsOn) {
  live.modeCode = "1";
  EXPECT_EQ(countAll(), "10:10");
  live.loop = base::kTrue;
  EXPECT_EQ(countAll(), "10:00");
}

TEST_F(Playtime, NothingSelectedIsTheMixLeadWithoutLoopAndNothingWithIt) {
  playtime.count();
  EXPECT_EQ(form.Label4.caption(), "00:10");
  live.loop = base::kTrue;
  playtime.count();
  EXPECT_EQ(form.Label4.caption(), "00:00");
  EXPECT_EQ(machine.trace(), "");
}

TEST_F(Playtime, OnlySelectedSongsAreReadEachFromAGraphOfItsOwn) {
  form.List1.setSelected(0, true);
  form.List1.setSelected(2, true);
  machine.doorway.recordReadings(true);
  playtime.count();
  EXPECT_EQ(machine.trace({Door::Decks}),
            "decks.create | C.render a.mp3 | C.duration | C.release | "
            "decks.create | C.render c.mp3 | C.duration | C.release");
  EXPECT_EQ(form.Label4.caption(), "06:30");
}

TEST_F(Playtime, WhileItCountsTheLabelSaysSoTheListIsHeldAndTimersRun) {
  form.Label4.setEnabled(false);
  int ticks = 0;
  const auto seen = onTick([&] {
    ++ticks;
    EXPECT_EQ(form.Label4.caption(), "Counting");
    EXPECT_TRUE(form.Label4.enabled());
    EXPECT_TRUE(songs.held);
  });
  EXPECT_EQ(countAll(), "09:40");
  EXPECT_EQ(ticks, 3);
  EXPECT_FALSE(songs.held);
}

TEST_F(Playtime, TheCurrentPositionIsNeverMoved) {
  form.List1.setListIndex(1);
  const auto seen = onTick([&] { EXPECT_EQ(form.List1.listIndex(), 1); });
  countAll();
  EXPECT_EQ(form.List1.listIndex(), 1);
}

TEST_F(Playtime, EscapeEndsTheCountAndLeavesZero) {
  const auto seen = onTick([&] { form.form.keyDown.raise({.key = controls::Key::Escape}); });
  EXPECT_EQ(countAll(), "00:00");
  EXPECT_EQ(machine.trace({Door::Decks}), "");
  EXPECT_FALSE(songs.held);
}

TEST_F(Playtime, AFileThatTakesItsTimeLeavesTheWindowAliveAndEscapeEndsItAtOnce) {
  machine.decks.setReadingTime(std::chrono::seconds(60));
  int ticks = 0;
  const auto seen = onTick([&] {
    if (++ticks == 50) form.form.keyDown.raise({.key = controls::Key::Escape});
  });
  EXPECT_EQ(countAll(), "00:00");
  EXPECT_EQ(ticks, 50);
  EXPECT_EQ(machine.trace({Door::Decks}), "");
  EXPECT_FALSE(songs.held);
  machine.decks.setReadingTime(std::chrono::seconds(0));
  EXPECT_EQ(countAll(), "09:40");
}

TEST_F(Playtime, ABarAndTheNumberDoneShowHowFarItIs) {
  machine.decks.setReadingTime(std::chrono::milliseconds(300));
  std::vector<std::string> shown;
  const auto seen = onTick([&] {
    if (!form.playtimeBar.visible()) return;
    EXPECT_TRUE(form.playtimeDone.visible());
    const std::string now =
        std::to_string(std::lround(form.playtimeBar.value())) + "% " + form.playtimeDone.caption();
    if (shown.empty() || shown.back() != now) shown.push_back(now);
  });
  EXPECT_EQ(countAll(), "09:40");
  EXPECT_EQ(shown, (std::vector<std::string>{"0% 0 of 3", "33% 1 of 3", "67% 2 of 3"}));
  EXPECT_FALSE(form.playtimeBar.visible());
  EXPECT_FALSE(form.playtimeDone.visible());
}

TEST_F(Playtime, ACountThatIsOverAtOnceShowsNoBar) {
  int changes = 0;
  const auto seen = form.playtimeBar.changed.subscribe([&] { ++changes; });
  form.List1.setSelected(1, true);
  playtime.count();
  EXPECT_EQ(form.Label4.caption(), "03:20");
  EXPECT_EQ(changes, 0);
}

TEST_F(Playtime, LargeNumbersAreReadable) {
  importPlaylist(std::vector<std::string>(12345, "C:\\Music\\a.mp3"));
  std::string last;
  const auto seen =
      form.playtimeDone.changed.subscribe([&] { last = form.playtimeDone.caption(); });
  countAll();
  EXPECT_EQ(last, "12,344 of 12,345");
}

TEST_F(Playtime, AFileThatGoesWhileItCountsEndsItThereAndOneThatChangesCountsAsItIs) {
  int ticks = 0;
  const auto seen = onTick([&] {
    if (++ticks == 2) machine.files.addFile("C:\\Music\\b.mp3", {.duration = 100});
  });
  EXPECT_EQ(countAll(), "08:00");
  ticks = 0;
  const auto gone = form.Timer1.tick.subscribe([&] {
    if (ticks == 3) machine.files.remove("C:\\Music\\c.mp3");
  });
  EXPECT_EQ(countAll(), "00:00");
  EXPECT_FALSE(songs.held);
  EXPECT_FALSE(form.playtimeBar.visible());
}

TEST_F(Playtime, EscapeAfterACountChangesNothing) {
  countAll();
  form.form.keyDown.raise({.key = controls::Key::Escape});
  EXPECT_EQ(form.Label4.caption(), "09:40");
  EXPECT_EQ(countAll(), "09:40");
}

TEST_F(Playtime, ClosingTheWindowEndsTheCount) {
  int ticks = 0;
  const auto seen = onTick([&] {
    if (++ticks == 2) form.form.close();
  });
  countAll();
  EXPECT_EQ(machine.trace({Door::Decks}), "decks.create | C.render a.mp3 | C.release");
}

TEST_F(Playtime, ASecondCountWhileOneRunsIsIgnored) {
  const auto seen = onTick([&] { playtime.count(); });
  EXPECT_EQ(countAll(), "09:40");
}

TEST_F(Playtime, WhatWasSelectedWhenItBeganIsCountedWhateverHappensMeanwhile) {
  const auto seen = onTick([&] {
    form.List1.deselectAll();
    browser.setFolder("C:\\Music\\Jazz");
  });
  EXPECT_EQ(countAll(), "09:40");
}

TEST_F(Playtime, ASongThatCannotBeReadEndsTheCountThere) {
  machine.files.addFile("C:\\Music\\b.mp3", {.playable = false});
  EXPECT_EQ(countAll(), "00:00");
  EXPECT_EQ(machine.trace({Door::Decks}),
            "decks.create | C.render a.mp3 | C.release | decks.create | C.render b.mp3 failed");
  EXPECT_FALSE(songs.held);
  EXPECT_FALSE(form.List1.hidden());
}

TEST_F(Playtime, InPlaylistModeThePrefixIsEmptiedAndTheEntriesAreThePaths) {
  importPlaylist({"C:\\Music\\a.mp3", "D:\\d.wav"});
  machine.files.addFile("D:\\d.wav", {.duration = 100});
  EXPECT_EQ(countAll(), "04:50");
  EXPECT_EQ(form.Text2.text(), "");
}

TEST_F(Playtime, WhicheverDoorCallFailsTheNextCountIsRight) {
  const std::uint64_t before = machine.doorCalls();
  countAll();
  const std::uint64_t calls = machine.doorCalls() - before;
  ASSERT_EQ(calls, 9U);
  for (std::uint64_t n = 1; n <= calls; ++n) {
    machine.failDoorCall(n);
    EXPECT_EQ(countAll(), "00:00") << n;
    EXPECT_FALSE(songs.held);
    machine.failDoorCall(0);
    EXPECT_EQ(countAll(), "09:40") << n;
  }
}

}  // namespace
}  // namespace nerolith::library
