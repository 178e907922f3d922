#include "program_fixture.h"

namespace nerolith::app {
namespace {

using controls::Key;
using platform::Answer;

class ListWorkRun : public ProgramTest {
 protected:
  void open(const std::string& mode, int songs, double duration = 30) {
    storeEarlierRun(mode);
    storeDisplay("fadem", "4");
    storeDisplay("fadelen", "2");
    addSongs("C:\\Music", songs, duration);
    start();
  }
  controls::MenuItem& item(const std::string& caption) {
    form().Command7.userClick();
    for (controls::MenuItem* found : machine.windows.lastMenu()->items()[0]->items())
      if (found->caption() == caption) return *found;
    throw std::logic_error("no item " + caption);
  }
  void select(const std::vector<int>& positions) {
    form().List1.deselectAll();
    for (const int i : positions) form().List1.setSelected(i, true);
  }
  void del() { form().form.keyDown.raise({.key = Key::Delete}); }
};

TEST_F(ListWorkRun, TheMenuTagsUntagsSelectsAndRemoves) {
  open("1", 4);
  machine.clock.setReadingTime(1ms);
  select({0, 1});
  item("Tag selected as played").userClick();
  item("Select unplayed files").userClick();
  EXPECT_EQ(form().List1.selectedCount(), 2);
  EXPECT_TRUE(form().List1.selected(2));
  item("Remove selected from list    (Del)").userClick();
  EXPECT_EQ(form().List1.items(), (std::vector<std::string>{"a.mp3", "b.mp3"}));
  select({0});
  item("Tag selected as unplayed").userClick();
  EXPECT_FALSE(program->songs().played(0));
  EXPECT_TRUE(program->songs().played(1));
}

TEST_F(ListWorkRun, AMixDuringTheCountStartsTheSongAfterTheOneThatPlays) {
  open("2", 20);
  ASSERT_EQ(playing(), "a.mp3");
  machine.advance(25s);
  form().List1.selectAll();
  machine.timeline.setYieldTime(100ms);
  item("Total selected playtime").userClick();  // 20 songs take it past the mix point at 26 s
  EXPECT_EQ(playing(), "b.mp3");
  EXPECT_EQ(form().List1.listIndex(), 1);
  EXPECT_EQ(form().Label4.caption(), "08:44");  // 20 * 26 + 4
  machine.timeline.setYieldTime(1ms);
  machine.advance(26s);
  EXPECT_EQ(playing(), "c.mp3");
}

TEST_F(ListWorkRun, TheCountLeavesTheDecksAlone) {
  open("2", 5);
  form().List1.selectAll();
  machine.clearTrace();
  item("Total selected playtime").userClick();
  EXPECT_EQ(machine.trace({Door::Decks}),
            "decks.create | C.render a.mp3 | C.release | decks.create | C.render b.mp3 | C.release "
            "| decks.create | C.render c.mp3 | C.release | decks.create | C.render d.mp3 | "
            "C.release | decks.create | C.render e.mp3 | C.release");
  EXPECT_EQ(machine.decks.audibleGraphs(), 1);
}

TEST_F(ListWorkRun, TheSumStaysReadableUntilAnotherSongIsChosen) {
  open("2", 3);
  machine.advance(1s);
  form().List1.selectAll();
  item("Total selected playtime").userClick();
  machine.advance(1s);
  EXPECT_TRUE(form().Label4.enabled());
  form().List1.userMoveTo(2);
  machine.advance(1s);
  EXPECT_FALSE(form().Label4.enabled());
}

TEST_F(ListWorkRun, ClosingWhileItCountsReleasesEveryFileBeforeDeletingTheMarkedOnes) {
  open("1", 3);
  machine.settings.set("Nerolith", "Setting", "mark_for_deletion", "True");
  machine.dialogs.answer(Answer::Yes);
  form().List1.userMoveTo(0);
  program->player().list1_DblClick();
  select({0});
  del();
  form().List1.selectAll();
  machine.timeline.setYieldTime(100ms);
  int ticks = 0;
  const auto closing = form().Timer1.tick.subscribe([&] {
    if (++ticks == 2) form().form.close();
  });
  machine.clearTrace();
  item("Total selected playtime").userClick();
  const std::string trace = machine.trace({Door::Decks, Door::Files});
  EXPECT_NE(trace.find("C.render b.mp3 | C.release"), std::string::npos) << trace;
  EXPECT_EQ(trace.find("c.mp3"), std::string::npos) << trace;
  EXPECT_LT(trace.rfind("release"), trace.find("files.delete C:\\Music\\a.mp3")) << trace;
  EXPECT_EQ(machine.files.find("C:\\Music\\a.mp3"), nullptr);
  EXPECT_EQ(form().Label4.caption(), "00:00");
}

TEST_F(ListWorkRun, ASongThatFadesAtTheCloseIsReleasedBeforeItsFileIsDeleted) {
  open("2", 3);
  machine.settings.set("Nerolith", "Setting", "mark_for_deletion", "True");
  machine.dialogs.answer(Answer::Yes);
  select({0});
  del();
  machine.advance(27s);  // a fades while b plays
  ASSERT_EQ(machine.decks.audibleGraphs(), 2);
  EXPECT_NE(machine.files.find("C:\\Music\\a.mp3"), nullptr);
  machine.clearTrace();
  form().form.close();
  const std::string trace = machine.trace({Door::Decks, Door::Files});
  EXPECT_LT(trace.rfind("release"), trace.find("files.delete C:\\Music\\a.mp3")) << trace;
  EXPECT_EQ(machine.files.find("C:\\Music\\a.mp3"), nullptr);
}

TEST_F(ListWorkRun, WithoutACloseNothingIsDeleted) {
  open("1", 3);
  machine.settings.set("Nerolith", "Setting", "mark_for_deletion", "True");
  machine.dialogs.answer(Answer::Yes);
  select({0, 1, 2});
  del();
  program.reset();
  EXPECT_EQ(machine.trace().find("files.delete"), std::string::npos);
}

TEST_F(ListWorkRun, TheCountLabelsFollowARemovalWithinOneTick) {
  open("1", 5);
  select({1, 2});
  machine.advance(100ms);
  EXPECT_EQ(form().Label2.caption(), "2");
  del();
  machine.advance(100ms);
  EXPECT_EQ(form().Label2.caption(), "0");
  EXPECT_EQ(form().Label3.caption(), "3");
}

TEST_F(ListWorkRun, AFunctionKeySelectsByTheStoredTextInRandom) {
  machine.settings.set("Nerolith", "Setting", "key0", "B");
  open("3", 5);
  form().form.keyDown.raise({.key = Key::F1});
  EXPECT_EQ(form().List1.selectedCount(), 1);
  EXPECT_TRUE(form().List1.selected(1));
}

}  // namespace
}  // namespace nerolith::app
