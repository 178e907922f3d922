#include "player/decks.h"

#include <gtest/gtest.h>

#include "base/failure.h"
#include "player_rig.h"

namespace nerolith::player {
namespace {

TEST(Decks, ReleasingADeckLeavesAFreshOne) {
  PlayerRig rig;
  rig.fillEqual(2, 180);
  rig.start(0);
  rig.live.fadeLength = 7;
  Decks& decks = rig.player.decks();
  decks.a.fadeOut = base::kTrue;
  rig.machine.clearTrace();
  decks.releaseA();
  EXPECT_EQ(rig.decksTrace(), "A.stop | decks.create | A.release");
  EXPECT_EQ(decks.a.fadeOut, base::kFalse);
  EXPECT_FLOAT_EQ(rig.player.state().fadeSteps, 7);
  EXPECT_FALSE(decks.a.loaded());
  EXPECT_EQ(decks.a.currentPosition(), 0.0);
  EXPECT_FALSE(decks.a.level().has_value());
}

TEST(Decks, ADeckThatCannotBeStoppedIsReplacedAllTheSame) {
  PlayerRig rig;
  rig.fillEqual(2, 180);
  rig.start(0);
  rig.machine.failDoorCall(1);
  rig.player.decks().releaseA();
  EXPECT_FALSE(rig.graph('A').rendered());
}

TEST(Decks, AnEmptyDeckRefusesEverythingButItsPosition) {
  PlayerRig rig;
  Deck& deck = rig.player.decks().b;
  EXPECT_EQ(deck.currentPosition(), 0.0);
  EXPECT_THROW(deck.run(), base::Failure);
  EXPECT_THROW(deck.pause(), base::Failure);
  EXPECT_THROW(deck.setVolume(0), base::Failure);
  EXPECT_THROW(deck.volume(), base::Failure);
  EXPECT_THROW(deck.seek(0), base::Failure);
  deck.replaceGraph(nullptr);
  EXPECT_EQ(deck.currentPosition(), 0.0);
  EXPECT_THROW(deck.render("C:\\m\\a.mp3"), base::Failure);
}

TEST(Decks, CurrentAlternatesAndAThirdValueMeansNeither) {
  PlayerRig rig;
  rig.fillEqual(3, 180);
  Decks& decks = rig.player.decks();
  rig.start(0);
  EXPECT_EQ(decks.current(), &decks.a);
  rig.start(1);
  EXPECT_EQ(decks.current(), &decks.b);
  rig.start(2);
  EXPECT_EQ(decks.current(), &decks.a);
  decks.currentDeckIsA = 1;
  EXPECT_EQ(decks.current(), nullptr);
}

TEST(Decks, ASongThatCannotBeRenderedLeavesTheOldOneCurrentAndFading) {
  PlayerRig rig;
  rig.fill({180, 0});
  rig.start(0);
  Decks& decks = rig.player.decks();
  EXPECT_THROW(decks.loadOther("C:\\m\\b.mp3"), base::Failure);
  EXPECT_EQ(decks.current(), &decks.a);
  EXPECT_EQ(decks.a.fadeOut, base::kTrue);
  EXPECT_FALSE(decks.b.loaded());
}

}  // namespace
}  // namespace nerolith::player
