#include "app/stay_awake.h"

#include "program_fixture.h"

namespace nerolith::app {
namespace {

using Why = platform::PowerRequest::Why;

TEST(StayAwake, ARecordingCountsBeforeASong) {
  EXPECT_EQ(reasonToStayAwake(false, false), std::nullopt);
  EXPECT_EQ(reasonToStayAwake(true, false), Why::Playing);
  EXPECT_EQ(reasonToStayAwake(false, true), Why::Recording);
  EXPECT_EQ(reasonToStayAwake(true, true), Why::Recording);
}

struct SwitchedRecording final : player::RecordingLink {
  bool writes = false;
  bool adjustEnabled() const override { return false; }
  bool recording() const override { return writes; }
  void placeBesideMainWindow() override {}
  void volumeCorrectionStep() override {}
  void stopRecording() override { writes = false; }
  void stopAfterLastSong() override {}
};

class StayAwakeRun : public ProgramTest {
 protected:
  StayAwakeRun() {
    addSongs("C:\\Music", 3);
    storeEarlierRun("1");
    program = std::make_unique<Program>(machine.doors(), StandIns{&playlists, &icon, &recorder});
    program->start("");
    machine.advance(200ms);
  }
  ~StayAwakeRun() override { program.reset(); }

  std::string power() const { return machine.trace({Door::Power}); }
  void play() {
    form().List1.userActivate(0);
    machine.advance(100ms);
  }

  SwitchedRecording recorder;
};

TEST_F(StayAwakeRun, APlayerAtRestAsksForNothing) {
  machine.advance(10s);
  EXPECT_EQ(power(), "");
}

TEST_F(StayAwakeRun, PlayingHoldsAndAMixOnlyOnce) {
  form().Option2.setValue(true);
  play();
  machine.advance(25s);
  EXPECT_EQ(playing(), "b.mp3");
  EXPECT_EQ(power(), "power.hold playing");
}

TEST_F(StayAwakeRun, APauseLetsGoUntilItEnds) {
  play();
  form().Command4.userClick();
  machine.advance(1s);
  EXPECT_FALSE(machine.power.held());
  form().Command4.userClick();
  machine.advance(1s);
  EXPECT_EQ(power(), "power.hold playing | power.release | power.hold playing");
}

TEST_F(StayAwakeRun, StopLetsGo) {
  play();
  form().Command2.userClick();
  machine.advance(100ms);
  EXPECT_EQ(power(), "power.hold playing | power.release");
}

TEST_F(StayAwakeRun, TheEndOfTheLastSongLetsGo) {
  play();
  machine.advance(31s);
  EXPECT_EQ(power(), "power.hold playing | power.release");
}

TEST_F(StayAwakeRun, ARecordingHoldsThoughNothingPlays) {
  recorder.writes = true;
  machine.advance(100ms);
  recorder.writes = false;
  machine.advance(100ms);
  EXPECT_EQ(power(), "power.hold recording | power.release");
}

TEST_F(StayAwakeRun, TheCloseLetsGo) {
  play();
  form().form.close();
  EXPECT_EQ(power(), "power.hold playing | power.release");
}

}  // namespace
}  // namespace nerolith::app
