#include "platform/simulated/simulated_machine.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

#include "base/failure_policy.h"
#include "platform/failure.h"

namespace nerolith::platform::simulated {
namespace {

using namespace std::chrono_literals;

struct TwoDecks {
  TwoDecks() {
    machine.files.addFile("C:\\Music\\a.mp3", {.duration = 12});
    machine.files.addFile("C:\\Music\\b.mp3", {.duration = 20});
    a = machine.decks.createFilterGraph();
    b = machine.decks.createFilterGraph();
    machine.clearTrace();
  }
  SimulatedMachine machine;
  std::unique_ptr<FilterGraph> a, b;
};

TEST(SimulatedMachine, TellsASongChangeAsOneTrace) {
  TwoDecks t;
  t.b->renderFile("C:\\Music\\b.mp3");
  t.b->setVolume(0);
  t.b->run();
  t.a->renderFile("C:\\Music\\a.mp3");
  t.a->setVolume(-98);
  EXPECT_EQ(t.machine.trace(),
            "B.render b.mp3 | B.volume 0 | B.run | A.render a.mp3 | A.volume -98");
}

TEST(SimulatedMachine, AFreshGraphTakesTheNameOfTheOneItReplaces) {
  TwoDecks t;
  t.a = t.machine.decks.createFilterGraph();  // made before the old one goes
  t.b.reset();
  t.b = t.machine.decks.createFilterGraph();
  t.machine.clearTrace();
  t.b->stop();
  t.a->stop();
  auto third = t.machine.decks.createFilterGraph();
  third->renderFile("C:\\Music\\a.mp3");
  third.reset();
  EXPECT_EQ(t.machine.trace(), "B.stop | A.stop | decks.create | C.render a.mp3 | C.release");
}

TEST(SimulatedMachine, AThirdDecksNameDoesNotGetIntoTheWayOfAReplacement) {
  TwoDecks t;
  auto third = t.machine.decks.createFilterGraph();
  third->stop();
  third.reset();
  t.a = t.machine.decks.createFilterGraph();
  t.machine.clearTrace();
  t.a->stop();
  EXPECT_EQ(t.machine.trace(), "A.stop");
}

TEST(SimulatedMachine, ReadingsAreTracedOnlyOnRequest) {
  TwoDecks t;
  (void)t.a->currentPosition();
  EXPECT_EQ(t.machine.trace(), "");
  t.machine.doorway.recordReadings(true);
  (void)t.a->currentPosition();
  EXPECT_EQ(t.machine.trace(), "A.position");
}

TEST(SimulatedMachine, TraceCanBeReadByDoorAndSwitchedOff) {
  TwoDecks t;
  t.a->stop();
  t.machine.settings.write("App", "Setting", "lo", "True");
  EXPECT_EQ(t.machine.trace({Door::Settings}), "settings.write App/Setting/lo=True");
  EXPECT_EQ(t.machine.trace({Door::Decks, Door::Files}), "A.stop");
  t.machine.recordTrace(false);
  t.b->stop();
  EXPECT_EQ(t.machine.trace({Door::Decks}), "A.stop");
}

TEST(SimulatedMachine, TheNthDoorCallFailsOnceAndDoesNothing) {
  TwoDecks t;
  const auto before = t.machine.doorCalls();
  t.machine.failDoorCall(2);
  t.a->renderFile("C:\\Music\\a.mp3");
  EXPECT_THROW(t.a->setVolume(-500), Failure);
  EXPECT_EQ(t.a->volume(), 0);
  t.a->setVolume(-500);
  EXPECT_EQ(t.a->volume(), -500);
  EXPECT_EQ(t.machine.doorCalls() - before, 5u);
  EXPECT_EQ(t.machine.doorway.faults(), 1u);
  EXPECT_EQ(t.machine.trace(), "A.render a.mp3 | A.volume -500 failed | A.volume -500");
}

TEST(SimulatedMachine, FaultsReachEveryDoorThatMayFail) {
  SimulatedMachine machine;
  machine.files.addFile("C:\\a.mp3");
  const auto fails = [&](auto call) {
    machine.failDoorCall(1);
    EXPECT_THROW(call(), Failure);
  };
  fails([&] { (void)machine.decks.createFilterGraph(); });
  fails([&] { (void)machine.files.files("C:\\", "*"); });
  fails([&] { (void)machine.files.lastModified("C:\\a.mp3"); });
  fails([&] { machine.files.deleteFile("C:\\a.mp3"); });
  fails([&] { (void)machine.settings.read("a", "b", "c"); });
  fails([&] { machine.settings.write("a", "b", "c", "d"); });
  fails([&] { (void)machine.pictures.load("C:\\skin.jpg"); });
  EXPECT_TRUE(machine.files.fileExists("C:\\a.mp3"));
  EXPECT_EQ(machine.settings.stored("a", "b", "c"), std::nullopt);
}

TEST(SimulatedDialogs, AQuestionWithoutAnAnswerFailsTheTestWhateverThePolicy) {
  SimulatedMachine machine;
  EXPECT_THROW(base::goOn([&] { machine.dialogs.showMessage({.text = "Sure?"}); }),
               std::logic_error);
  machine.dialogs.answer(Answer::Yes);
  EXPECT_THROW(machine.dialogs.showMessage({.text = "Only OK"}), std::logic_error);
  machine.dialogs.answer(Answer::Ok);
  EXPECT_THROW(machine.dialogs.openFile({"Open", "", ""}), std::logic_error);
}

TEST(SimulatedDialogs, AnswersComeInOrderAndSongsGoOnMeanwhile) {
  TwoDecks t;
  t.a->renderFile("C:\\Music\\a.mp3");
  t.a->run();
  t.machine.dialogs.answer(Answer::No, 3s);
  t.machine.dialogs.chooseFile("C:\\x.m3u");
  t.machine.dialogs.cancelFile();
  t.machine.clearTrace();
  EXPECT_EQ(t.machine.dialogs.showMessage({.text = "Sure?", .buttons = MessageButtons::YesNo}),
            Answer::No);
  EXPECT_EQ(t.a->currentPosition(), 3);
  EXPECT_EQ(t.machine.dialogs.openFile({"Open", "", ""}), "C:\\x.m3u");
  EXPECT_EQ(t.machine.dialogs.saveFile({"Save", "", ""}), std::nullopt);
  EXPECT_EQ(t.machine.trace(), "dialogs.message Sure? | dialogs.open Open | dialogs.save Save");
  EXPECT_EQ(t.machine.dialogs.unusedAnswers(), 0u);
}

TEST(SimulatedPictures, LoadsWhatWasAddedAndNothingElse) {
  SimulatedMachine machine;
  machine.pictures.add("C:\\skin.jpg", {1, 1, {0xFF102030}});
  EXPECT_EQ(machine.pictures.load("C:\\skin.jpg").pixels.at(0), 0xFF102030u);
  EXPECT_THROW(machine.pictures.load("C:\\other.jpg"), Failure);
}

}  // namespace
}  // namespace nerolith::platform::simulated
