#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>

#include "endtoend/stage.h"

namespace nerolith::endtoend {
namespace {

/// Three songs of 20 s in Single on a desktop with message buses.
class DesktopControls : public ::testing::Test {
 protected:
  DesktopControls() {
    stage.desktop.startMessageBuses();
    stage.prepare({"a.wav", "b.wav", "c.wav"}, 20);
  }

  void open(std::vector<std::string> arguments = {"1"}) {
    stage.open({.mode = 2}, std::move(arguments));
  }

  Command tool(std::vector<std::string> words) const {
    return stage.desktop.command(std::move(words));
  }
  /// What playerctl prints, without the end of the line; empty when it fails.
  std::string asked(std::vector<std::string> words) const {
    words.insert(words.begin(), {"playerctl", "--player=velmarion"});
    Command command = tool(std::move(words));
    const ScratchFolder scratch;
    command.log = scratch.path() / "answer";
    if (runToEnd(command) != 0) return {};
    std::string text = contentsOf(command.log);
    while (text.ends_with('\n')) text.pop_back();
    return text;
  }
  bool pressed(std::vector<std::string> words) const {
    words.insert(words.begin(), {"playerctl", "--player=velmarion"});
    return runToEnd(tool(std::move(words))) == 0;
  }
  static bool within(double longest, const std::function<bool()>& reached) {
    for (double waited = 0; !reached(); waited += 0.05) {
      if (waited > longest) return false;
      pauseFor(0.05);
    }
    return true;
  }
  /// "" when the answer comes, else the last one.
  std::string awaited(const std::vector<std::string>& words, const std::string& answer) const {
    std::string last;
    return within(5, [&] { return (last = asked(words)) == answer; }) ? answer : last;
  }
  bool hears(std::size_t song) const {
    return stage.recording->waitForTone(stage.songs[song].hertz, 5);
  }
  bool silent() const { return stage.recording->waitForSilence(0.3, 5); }
  int say(const std::string& method) const {
    return runToEnd(tool({"dbus-send", "--print-reply", "--dest=org.mpris.MediaPlayer2.velmarion",
                          "/org/mpris/MediaPlayer2", method}));
  }

  Stage stage;
};

TEST_F(DesktopControls, MediaKeysPlayPauseAndStopWhatIsHeard) {
  open();
  ASSERT_EQ(awaited({"status"}, "Stopped"), "Stopped");
  EXPECT_FALSE(pressed({"next"}));  // Single has none
  ASSERT_TRUE(pressed({"loop", "Playlist"}));
  ASSERT_TRUE(pressed({"play"}));
  EXPECT_TRUE(hears(0));
  EXPECT_EQ(awaited({"status"}, "Playing"), "Playing");
  EXPECT_EQ(asked({"metadata", "xesam:title"}), "a");
  EXPECT_EQ(asked({"metadata", "xesam:url"}), "file://" + stage.songs[0].file.string());
  EXPECT_NEAR(std::atof(asked({"metadata", "mpris:length"}).c_str()) / 1e6, stage.songs[0].length,
              0.1);
  ASSERT_TRUE(pressed({"pause"}));
  EXPECT_TRUE(silent());
  EXPECT_EQ(asked({"status"}), "Paused");
  ASSERT_TRUE(pressed({"play-pause"}));
  EXPECT_TRUE(hears(0));
  ASSERT_TRUE(pressed({"next"}));
  EXPECT_TRUE(hears(1));
  EXPECT_EQ(asked({"metadata", "xesam:title"}), "b");
  ASSERT_TRUE(pressed({"stop"}));
  EXPECT_TRUE(silent());
  EXPECT_EQ(asked({"status"}), "Stopped");
  EXPECT_EQ(asked({"metadata", "xesam:title"}), "");
}

TEST_F(DesktopControls, TheDesktopSeeksAndReadsThePosition) {
  const Song climb = stage.prepareClimb("climb.wav", 30);
  open({climb.file.string() + ",1"});
  ASSERT_EQ(awaited({"status"}, "Playing"), "Playing");
  ASSERT_TRUE(pressed({"position", "14.5"}));
  const double told = std::atof(asked({"position"}).c_str());
  EXPECT_GE(told, 14.5);
  EXPECT_LT(told, 17);
  ASSERT_TRUE(pressed({"position", "5+"}));
  EXPECT_GE(std::atof(asked({"position"}).c_str()), 19.5);
  ASSERT_TRUE(stage.recording->waitForSound(3));
  pauseFor(0.6);
  const double now = std::atof(asked({"position"}).c_str());
  const Climb heard = climbOf(stage.recording->sound(), 0);
  EXPECT_NEAR(heard.position.back(), now, 1.0);
}

TEST_F(DesktopControls, LoopAndShuffleAreThePlayersModes) {
  open();
  ASSERT_EQ(awaited({"loop"}, "None"), "None");
  ASSERT_TRUE(pressed({"loop", "Track"}));
  EXPECT_EQ(asked({"loop"}), "Track");
  ASSERT_TRUE(pressed({"shuffle", "On"}));
  EXPECT_EQ(asked({"shuffle"}), "On");
  EXPECT_EQ(asked({"loop"}), "Playlist");
  EXPECT_EQ(asked({"volume"}), "1.000000");
  EXPECT_EQ(say("org.freedesktop.DBus.Peer.Ping"), 0);
  pressed({"volume", "0.3"});
  EXPECT_EQ(asked({"volume"}), "1.000000");
  EXPECT_EQ(stage.close(), 0);
  const std::string display = "Microsoft Visual Basic AddIns/Setting";
  EXPECT_EQ(storedText(stage.desktop, display, "setting"), "3");
  EXPECT_EQ(storedText(stage.desktop, display, "lo"), "True");
}

TEST_F(DesktopControls, ChangesAreToldWithoutBeingAskedFor) {
  open();
  ASSERT_EQ(awaited({"status"}, "Stopped"), "Stopped");
  Command listening = tool({"dbus-monitor", "--session", "path=/org/mpris/MediaPlayer2"});
  listening.log = stage.desktop.scratch() / "signals";
  const ChildProcess listener(listening);
  const auto told = [&](const std::string& text) {
    return within(5, [&] { return contentsOf(listening.log).find(text) != std::string::npos; });
  };
  ASSERT_TRUE(told("NameAcquired"));
  stage.player->key("space");  // the first song, as the user starts it
  EXPECT_TRUE(told("string \"Playing\""));
  EXPECT_TRUE(told("string \"a\""));
  ASSERT_TRUE(pressed({"position", "9"}));
  EXPECT_TRUE(told("member=Seeked\n   int64 9"));
  stage.player->key("alt+s");
  EXPECT_TRUE(told("string \"Stopped\""));
}

TEST_F(DesktopControls, TheDesktopRaisesAndEndsThePlayer) {
  open();
  ASSERT_EQ(awaited({"status"}, "Stopped"), "Stopped");
  runToEnd(tool({"xdotool", "search", "--name", "^Nerolith$", "windowminimize"}));
  ASSERT_TRUE(within(5, [&] { return !stage.player->showsTitle("^Nerolith$"); }));
  EXPECT_EQ(say("org.mpris.MediaPlayer2.Raise"), 0);
  EXPECT_TRUE(stage.player->waitForTitle("Nerolith", 5));
  EXPECT_EQ(say("org.mpris.MediaPlayer2.Quit"), 0);
  EXPECT_EQ(stage.player->waitForEnd(5), 0);
  EXPECT_EQ(storedText(stage.desktop, "Microsoft Visual Basic AddIns/Setting", "setting"), "1");
}

}  // namespace
}  // namespace nerolith::endtoend
