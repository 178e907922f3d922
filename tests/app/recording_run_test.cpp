// Recording while the whole player plays, on the simulated machine.
#include <cmath>
#include <map>
#include <utility>

#include "platform/simulated/simulated_decks.h"
#include "program_fixture.h"

namespace nerolith::app {
namespace {

class RecordingRun : public ProgramTest {
 protected:
  RecordingRun() { machine.files.addFolder("C:\\rec"); }

  /// A player with a recording section of its own, in the mode, with `songs` songs of `length`.
  void begin(const std::string& mode, int songs, double length, const std::string& adjust = "0") {
    storeEarlierRun("1");
    storeDisplay("fadem", "4");
    storeDisplay("fadelen", fadeLength);
    machine.settings.set("Nerolith", "Setting", "adjust", adjust);
    addSongs("C:\\Music", songs, length);
    program = std::make_unique<Program>(machine.doors(), StandIns{&playlists, &icon, nullptr});
    program->start({});
    machine.advance(200ms);
    if (mode == "2") form().Option2.setValue(true);
    if (mode == "3") form().Option3.setValue(true);
  }
  std::string fadeLength = "2";  // seconds
  recording::RecordingSection& section() { return program->recordingSection(); }
  forms::RecordingForm& recordingForm() { return section().window().form(); }
  void record() {
    section().open();
    machine.dialogs.chooseFile("C:\\rec\\a.wav");
    machine.clearTrace();
    recordingForm().Label2[2].userClick();
  }
  /// What was heard and written, the volumes left out.
  std::string story() {
    std::string all = machine.trace({Door::Decks, Door::Output, Door::Dialogs});
    std::string kept;
    std::size_t from = 0;
    while (from <= all.size() && !all.empty()) {
      const std::size_t to = std::min(all.find(" | ", from), all.size());
      const std::string entry = all.substr(from, to - from);
      const bool steps = entry.find(".volume") != std::string::npos || entry == "decks.create";
      if (!steps) kept += (kept.empty() ? "" : " | ") + entry;
      from = to + 3;
    }
    return kept;
  }
};

TEST_F(RecordingRun, TheMenuOpensTheSectionBesideThePlayer) {
  begin("1", 1, 30);
  form().List1.mouseDown.raise(controls::MouseButton::Right);
  controls::MenuItem* item = machine.windows.lastMenu()->items()[2];
  EXPECT_EQ(item->caption(), "Recording section");
  EXPECT_TRUE(item->visible());
  item->userClick();
  EXPECT_TRUE(recordingForm().form.visible());
  form().form.setVisible(false);
  machine.advance(200ms);
  EXPECT_FALSE(recordingForm().form.visible());
}

TEST_F(RecordingRun, TheEndOfTheListInAutoNextFadesOutAndFinishesTheFile) {
  begin("2", 2, 10);
  record();
  machine.advance(30s);
  // The second song begins 6 s after the first; its own mix point, 6 s later, is the list's end,
  // and 2.5 s after that the file is finished.
  EXPECT_EQ(
      story(),
      "dialogs.save Select Filename to record to | A.stop | B.stop | "
      "output.create C:\\rec\\a.wav | output.append 20 | output.append 16 | output.append 8 | "
      "A.render a.mp3 | A.run | output.append 352802 | output.append 352802 | "
      "B.render b.mp3 | B.run | output.append 352802 | output.append 352802 | "
      "A.stop | A.release | output.append 352802 | output.append 352802 | "
      "output.append 352802 | B.stop | B.release | A.stop | B.stop | output.append 88202 | "
      "output.write 4 4 | output.write 36 8 | output.close");
  EXPECT_FALSE(section().recording());
}

TEST_F(RecordingRun, TheEndOfRandomPlayFadesOutAndFinishesTheFile) {
  begin("3", 3, 12);
  record();
  machine.advance(60s);
  EXPECT_FALSE(section().recording());
  EXPECT_FALSE(machine.output.isOpen("C:\\rec\\a.wav"));
  EXPECT_EQ(machine.decks.audibleGraphs(), 0);
  EXPECT_TRUE(program->songs().listExhausted);
  // Two songs of 8 s each until they are mixed, 8 s of the third, and its fade of 2.5 s.
  EXPECT_NEAR(static_cast<double>(machine.output.bytes("C:\\rec\\a.wav").size()) / 176400, 26.5,
              2.0);
}

TEST_F(RecordingRun, TheMegabyteLimitFadesOutAndFinishesTheFileWithinOneHalf) {
  begin("2", 9, 60);
  record();
  recordingForm().Text1[0].setText("5");
  machine.advance(60s);
  EXPECT_FALSE(section().recording());
  const double limit = 5 * 1048576;
  EXPECT_LE(static_cast<double>(machine.output.bytes("C:\\rec\\a.wav").size()), limit + 352802);
  EXPECT_GE(static_cast<double>(machine.output.bytes("C:\\rec\\a.wav").size()), limit - 352802);
  EXPECT_EQ(machine.decks.audibleGraphs(), 0);
}

TEST_F(RecordingRun, FadeOutAndStopLowersTheCurrentDeckTickByTick) {
  begin("2", 2, 60);
  record();
  machine.advance(5s);
  machine.clearTrace();
  recordingForm().Label2[3].userClick();
  machine.advance(3s);
  const std::string decks = machine.trace({Door::Decks});
  EXPECT_EQ(decks.find("A.volume -238 | A.volume -476 | A.volume -714"), 0U) << decks;
  EXPECT_NE(decks.find("A.release"), std::string::npos);
  EXPECT_FALSE(section().recording());
}

TEST_F(RecordingRun, ExitFinishesTheFileAndTheSongPlaysOn) {
  begin("2", 2, 60);
  record();
  machine.advance(5s);
  recordingForm().Label1.userClick();
  EXPECT_FALSE(machine.output.isOpen("C:\\rec\\a.wav"));
  machine.advance(10s);
  EXPECT_EQ(machine.decks.audibleGraphs(), 1);
  EXPECT_FALSE(recordingForm().form.visible());
}

TEST_F(RecordingRun, StopInTheMainWindowFinishesTheFile) {
  begin("2", 2, 60);
  record();
  machine.advance(5s);
  form().Command2.userClick();
  EXPECT_FALSE(section().recording());
  EXPECT_FALSE(machine.output.isOpen("C:\\rec\\a.wav"));
}

TEST_F(RecordingRun, ClosingThePlayerFinishesTheFileOnce) {
  begin("2", 2, 60);
  record();
  machine.advance(5s);
  recordingForm().Label2[3].userClick();
  machine.advance(1s);
  machine.clearTrace();
  form().form.close();
  machine.advance(10s);
  EXPECT_FALSE(machine.output.isOpen("C:\\rec\\a.wav"));
  program.reset();
  const std::string written = machine.trace({Door::Output});
  EXPECT_EQ(written.find("output.close"), written.rfind("output.close"));
  EXPECT_NE(written.find("output.close"), std::string::npos);
}

TEST_F(RecordingRun, AStartWithAnEmptyListRunsOutOfSongsAtOnceAndEndsByItself) {
  begin("2", 0, 0);
  record();
  machine.advance(10s);
  EXPECT_FALSE(section().recording());
  EXPECT_FALSE(machine.output.isOpen("C:\\rec\\a.wav"));
}

TEST_F(RecordingRun, AStartWithAnEmptyListInSingleRecordsUntilItIsStopped) {
  begin("1", 0, 0);
  record();
  machine.advance(10s);
  EXPECT_TRUE(section().recording());
  form().Command2.userClick();
  EXPECT_FALSE(section().recording());
}

TEST_F(RecordingRun, SongsStartWithHeadRoomWhileTheVolumeIsAdjusted) {
  begin("1", 1, 60, "True");
  machine.clearTrace();
  form().Label8[0].userClick();
  EXPECT_EQ(machine.trace({Door::Decks}).find("A.render a.mp3 | A.volume -500 | A.run"), 0U);
}

/// The card delivers what the decks play: each song's own peak, less what its deck takes away.
TEST_F(RecordingRun, ALoudAndAQuietSongAreBroughtIntoTheBand) {
  const std::map<std::string, double> peaks = {
      {"C:\\Music\\a.mp3", 40000}, {"C:\\Music\\b.mp3", 21500}, {"C:\\Music\\c.mp3", 16000}};
  begin("2", 3, 120, "True");
  std::int64_t tenth = -1;
  double level = 0;
  machine.capture.setSound([&](std::int64_t sample) {
    if (std::exchange(tenth, sample / 8820) == sample / 8820)
      return static_cast<std::int16_t>(std::min(level, 32767.0));
    level = 0;
    for (const char letter : {'A', 'B'}) {
      const auto* graph = machine.decks.graph(letter);
      if (!graph || !graph->audible()) continue;
      level = std::max(level, peaks.at(graph->path()) * std::pow(10, graph->level() / 2000.0));
    }
    return static_cast<std::int16_t>(std::min(level, 32767.0));
  });
  const auto expectInBand = [this] {
    EXPECT_GT(section().window().peakLevel(), 20000);
    EXPECT_LT(section().window().peakLevel(), 22000);
    EXPECT_EQ(recordingForm().Label4.caption(), "Volume adjust |");
  };
  form().Label8[0].userClick();
  machine.advance(20s);
  expectInBand();
  EXPECT_LT(machine.decks.graph('A')->level(), -500);
  machine.advance(130s);
  EXPECT_EQ(playing(), "b.mp3");
  expectInBand();
  EXPECT_GT(machine.decks.graph('B')->level(), -500);
  machine.advance(115s);
  EXPECT_EQ(playing(), "c.mp3");
  // It cannot be made louder than it is: it ends at full level.
  EXPECT_GT(section().window().peakLevel(), 15800);
  EXPECT_GE(machine.decks.graph('A')->level(), -6);
}

TEST_F(RecordingRun, EveryFailingDoorDuringTheFadeLeavesAPlayerThatPlaysAgain) {
  fadeLength = "1";
  begin("2", 3, 60);
  section().open();
  const std::string file = "C:\\rec\\a.wav";
  for (std::uint64_t n = 1, before = 0; n == 1 || machine.doorway.faults() > before; ++n) {
    before = machine.doorway.faults();
    machine.dialogs.chooseFile(file);
    recordingForm().Label2[2].userClick();
    machine.advance(2200ms);
    recordingForm().Label2[3].userClick();
    machine.failDoorCall(n);
    machine.advance(1700ms);
    machine.failDoorCall(0);
    EXPECT_FALSE(section().recording()) << n;
    EXPECT_FALSE(recordingForm().Timer2.enabled()) << n;
    EXPECT_FALSE(machine.output.isOpen(file)) << n;
    EXPECT_EQ(machine.decks.audibleGraphs(), 0) << n;
    form().Command3.setEnabled(true);
    machine.files.remove(file);
    machine.clearTrace();
  }
  EXPECT_GT(machine.doorway.faults(), 100U);
}

}  // namespace
}  // namespace nerolith::app
