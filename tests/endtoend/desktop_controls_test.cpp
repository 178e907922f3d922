#include <gtest/gtest.h>

#include <algorithm>
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
  int say(const std::string& method, const std::vector<std::string>& arguments = {}) const {
    std::vector<std::string> words = {"dbus-send", "--print-reply",
                                      "--dest=org.mpris.MediaPlayer2.velmarion",
                                      "/org/mpris/MediaPlayer2", method};
    words.insert(words.end(), arguments.begin(), arguments.end());
    return runToEnd(tool(std::move(words)));
  }
  /// All properties, a line each, and what is wrong with how the player describes itself.
  std::string properties() const {
    return outputOf(
        tool({"/usr/bin/python3", NEROLITH_SOURCE_DIR "/tests/endtoend/media_client.py"}),
        stage.desktop.scratch());
  }
  /// The types of files that the desktop entry names, one behind the other.
  static std::string entrysTypes() {
    const std::string entry = contentsOf(NEROLITH_SOURCE_DIR "/packaging/linux/velmarion.desktop");
    const std::string key = "\nMimeType=";
    const std::size_t from = entry.find(key) + key.size();
    std::string types = entry.substr(from, entry.find(";\n", from) - from);
    std::replace(types.begin(), types.end(), ';', ' ');
    return types;
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
  EXPECT_TRUE(told("member=PropertiesChanged\n   string \"org.mpris.MediaPlayer2.Player\""));
  EXPECT_TRUE(told("string \"a\""));
  EXPECT_TRUE(told("object path \"/velmarion/song/1\""));
  EXPECT_TRUE(told("int64 20"));  // the length
  ASSERT_TRUE(pressed({"position", "9"}));
  EXPECT_TRUE(told("member=Seeked\n   int64 9"));
  stage.player->key("alt+s");
  EXPECT_TRUE(told("string \"Stopped\""));
}

TEST_F(DesktopControls, EveryPropertyOfAPlayerAtRestAndOfOneThatPlays) {
  open();
  ASSERT_EQ(awaited({"status"}, "Stopped"), "Stopped");
  EXPECT_EQ(properties(),
            "CanControl b true\nCanGoNext b false\nCanGoPrevious b false\nCanPause b false\n"
            "CanPlay b true\nCanQuit b true\nCanRaise b true\nCanSeek b false\n"
            "DesktopEntry s velmarion\nHasTrackList b false\nIdentity s Nerolith\n"
            "LoopStatus s None\nMaximumRate d 1\nMetadata a{sv}\nMinimumRate d 1\n"
            "PlaybackStatus s Stopped\nPosition x 0\nRate d 1\nShuffle b false\n"
            "SupportedMimeTypes as " +
                entrysTypes() +
                "\nSupportedUriSchemes as file\nVolume d 1\n"
                "mpris:trackid o /org/mpris/MediaPlayer2/TrackList/NoTrack\n");
  ASSERT_TRUE(pressed({"play"}));
  ASSERT_TRUE(hears(0));
  const std::string playing = properties();
  for (const std::string& line :
       {std::string("CanPause b true"), std::string("CanSeek b true"),
        std::string("PlaybackStatus s Playing"), std::string("mpris:trackid o /velmarion/song/1"),
        std::string("xesam:title s a"), "xesam:url s file://" + stage.songs[0].file.string(),
        std::string("mpris:length x 20")})
    EXPECT_NE(playing.find("\n" + line), playing.npos) << line << "\nis not in\n" << playing;
  EXPECT_EQ(playing.find("\nPosition x 0\n"), playing.npos);

  const std::string player = "org.mpris.MediaPlayer2.Player.";
  EXPECT_EQ(say(player + "Previous"), 0);  // there is none
  EXPECT_EQ(say(player + "SetPosition", {"objpath:/velmarion/song/9", "int64:15000000"}), 0);
  EXPECT_LT(std::atof(asked({"position"}).c_str()), 14) << "that is another song's";
  EXPECT_EQ(asked({"status"}), "Playing");
  EXPECT_EQ(say("org.freedesktop.DBus.Properties.Set",
                {"string:org.mpris.MediaPlayer2.Player", "string:Rate", "variant:double:0"}),
            0);
  EXPECT_EQ(awaited({"status"}, "Paused"), "Paused");
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
