#include "platform/windows/transport_controls.h"

#include <gtest/gtest.h>
#include <thread>

#include "windows_system/fake_transport.h"
#include "windows_system/heard_commands.h"

namespace nerolith::windows {
namespace {

using platform::PlayState;

const HWND kWindow = GetDesktopWindow();

struct Transport : testing::Test {
  FakeTransport fake;
  HeardCommands player;
  TransportControls controls{[] { return kWindow; }, &FakeTransport::calls};

  void open() {
    controls.open(player);
    fake.told();
  }
};

TEST_F(Transport, IsEnabledForThePlayersWindowWithoutAWayBack) {
  controls.open(player);
  EXPECT_TRUE(controls.present());
  EXPECT_EQ(fake.window, kWindow);
  EXPECT_EQ(fake.told(), "IsPreviousEnabled 0 | IsEnabled 1 | ");
}

TEST_F(Transport, IsToldTheSongItsStateAndItsTimeline) {
  open();
  controls.show(playingSong(2));
  EXPECT_EQ(fake.told(),
            "PlaybackStatus 3 | IsPlayEnabled 1 | IsPauseEnabled 1 | IsNextEnabled 1 | "
            "IsStopEnabled 1 | ClearAll | Type 1 | Title 'Low Tide \xC3\xA9' | Update | "
            "AutoRepeatMode 0 | ShuffleEnabled 0 | StartTime 0 | EndTime 2000000000 | "
            "MinSeekTime 0 | MaxSeekTime 2000000000 | Position 20000000 | timeline | ");
}

TEST_F(Transport, IsToldOnlyWhatChanges) {
  open();
  controls.show(playingSong(2));
  fake.told();
  controls.show(playingSong(3));
  EXPECT_EQ(fake.told(), "");
  platform::MediaStatus paused = playingSong(3);
  paused.state = PlayState::Paused;
  controls.show(paused);
  const std::string told = fake.told();
  EXPECT_EQ(told.find("PlaybackStatus 4 | "), 0u);
  EXPECT_NE(told.find("Position 30000000 | timeline"), told.npos);
  EXPECT_EQ(told.find("Title"), told.npos);
  platform::MediaStatus stopped;
  controls.show(stopped);
  EXPECT_EQ(fake.told().find("PlaybackStatus 2 | IsPlayEnabled 0"), 0u);
}

TEST_F(Transport, IsToldThePositionEveryFiveSecondsAndAtALeap) {
  open();
  controls.show(playingSong(2));
  fake.told();
  controls.show(playingSong(6.9));
  EXPECT_EQ(fake.told(), "");
  controls.show(playingSong(7.1));
  EXPECT_NE(fake.told().find("Position 71000000 | timeline"), std::string::npos);
  controls.seeked(9);
  EXPECT_NE(fake.told().find("Position 90000000 | timeline"), std::string::npos);
}

TEST_F(Transport, IsToldTheModes) {
  open();
  controls.show(playingSong());
  fake.told();
  platform::MediaStatus random = playingSong();
  random.shuffle = true;
  random.repeat = platform::Repeat::List;
  controls.show(random);
  EXPECT_EQ(fake.told(), "AutoRepeatMode 2 | ShuffleEnabled 1 | ");
}

TEST_F(Transport, ASongThatFollowsItselfIsToldAnew) {
  open();
  controls.show(playingSong(199));
  fake.told();
  platform::MediaStatus again = playingSong(0);
  again.song = 2;
  controls.show(again);
  EXPECT_NE(fake.told().find("Title 'Low Tide"), std::string::npos);
}

// The system calls on a thread of its own; the player hears it on its own, as an event.
TEST_F(Transport, ButtonsArriveOnThePlayersThread) {
  open();
  std::thread system([&] {
    for (const abi::Button button : {abi::Button::Play, abi::Button::Pause, abi::Button::Stop,
                                     abi::Button::Next, abi::Button::Previous, abi::Button::Record})
      fake.press(button);
    fake.seek(125'000'000);
  });
  system.join();
  EXPECT_EQ(player.heard, "");
  letMessagesArrive();
  EXPECT_EQ(player.heard, "play pause stop next seekTo:12.500000 ");
}

TEST_F(Transport, ClosedItIsDisabledHearsNothingAndGivesAllBack) {
  open();
  controls.show(playingSong());
  fake.press(abi::Button::Next);
  fake.told();
  controls.close();
  EXPECT_EQ(fake.told(), "removed 7 | removed 8 | IsEnabled 0 | ");
  EXPECT_EQ(fake.references(), 0u);
  letMessagesArrive();
  EXPECT_EQ(player.heard, "");
  controls.show(playingSong());
  controls.seeked(3);
  EXPECT_EQ(fake.told(), "");
}

TEST_F(Transport, ASystemWithoutATimelineIsToldTheRest) {
  fake.hasTimeline = false;
  open();
  controls.show(playingSong());
  const std::string told = fake.told();
  EXPECT_NE(told.find("Title"), told.npos);
  EXPECT_EQ(told.find("timeline"), told.npos);
}

TEST(TransportCalls, ASystemWithoutTheRuntimeHasNoControlsAndNothingFails) {
  HeardCommands player;
  TransportControls controls([] { return kWindow; }, [] { return RuntimeCalls(); });
  controls.open(player);
  EXPECT_FALSE(controls.present());
  controls.show(playingSong());
  controls.seeked(1);
  controls.close();
}

// Wine 8 has the runtime but not the controls; Windows 10 has both.
TEST(TransportCalls, ThisSystemIsAskedWithoutHarm) {
  OleInitialize(nullptr);
  HeardCommands player;
  {
    TransportControls controls([] { return kWindow; });
    controls.open(player);
    controls.show(playingSong());
  }
  OleUninitialize();
  EXPECT_EQ(player.heard, "");
}

}  // namespace
}  // namespace nerolith::windows
