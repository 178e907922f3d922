#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <initializer_list>
#include <sstream>

#include "endtoend/stage.h"
#include "endtoend/wait_until.h"

namespace nerolith::endtoend {
namespace {

/// A control as a screen reader is told of it.
struct Told {
  std::string role, name, description, value, states;

  bool can(const std::string& state) const { return states.find(state) != std::string::npos; }
};

std::string describe(const std::vector<Told>& controls) {
  std::string text;
  for (const Told& control : controls)
    text += control.role + "|" + control.name + "|" + control.description + "|" + control.value +
            "|" + control.states + "\n";
  return text;
}

bool isOneOf(const std::string& word, std::initializer_list<const char*> words) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

/// What a screen reader misses; empty for nothing.
std::string complaintOf(const Told& told) {
  if (isOneOf(told.role, {"filler", "panel", "scroll bar"})) return {};  // nothing by themselves
  const bool valued = isOneOf(told.role, {"text", "slider", "progress bar"});
  const bool reached = isOneOf(told.role, {"push button", "check box", "combo box", "list"}) ||
                       (valued && told.role != "progress bar");
  const bool plain = isOneOf(told.role, {"application", "frame", "dialog", "label", "list item"});
  if (!valued && !reached && !plain) return "has no role that says what it is";
  // A line that is not there has no words.
  if (told.name.empty() && (told.role != "label" || told.can("showing"))) return "has no name";
  if (valued && told.value.empty()) return "has no value";
  if (reached && told.can("enabled") && !told.can("focusable")) return "cannot be reached by keys";
  return {};
}

/// The player on a desktop with a screen reader.
class Accessibility : public ::testing::Test {
 protected:
  Accessibility() {
    stage.desktop.startMessageBuses();
    Command launcher =
        stage.desktop.command({"/usr/libexec/at-spi-bus-launcher", "--launch-immediately"});
    registry = std::make_unique<ChildProcess>(launcher);
    setenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1", 1);
    stage.prepare({"a.wav", "b.wav"}, 20);
  }
  ~Accessibility() override { unsetenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"); }

  Command reader(std::vector<std::string> words) const {
    words.insert(words.begin(),
                 {"/usr/bin/python3", NEROLITH_SOURCE_DIR "/tests/endtoend/screen_reader.py"});
    return stage.desktop.command(std::move(words));
  }
  std::vector<Told> controls() const {
    std::istringstream lines(outputOf(reader({"list"}), stage.desktop.scratch()));
    std::vector<Told> found;
    for (std::string line; std::getline(lines, line);) {
      std::istringstream fields(line);
      Told& told = found.emplace_back();
      for (std::string* field :
           {&told.role, &told.name, &told.description, &told.value, &told.states})
        std::getline(fields, *field, '|');
    }
    return found;
  }
  static Told named(const std::vector<Told>& controls, const std::string& name) {
    const auto found = std::find_if(controls.begin(), controls.end(),
                                    [&](const Told& told) { return told.name == name; });
    return found == controls.end() ? Told{} : *found;
  }
  /// Every control has what a screen reader needs, and among them are those of these names. What
  /// comes or goes while it is read is half told: it is read again.
  std::vector<Told> expectWords(const std::vector<std::string>& names) const {
    std::vector<Told> seen;
    waitUntil(3, [&] {
      seen = controls();
      return std::all_of(seen.begin(), seen.end(),
                         [](const Told& told) { return complaintOf(told).empty(); });
    });
    for (const std::string& name : names) EXPECT_EQ(named(seen, name).name, name) << describe(seen);
    for (const Told& told : seen) EXPECT_EQ(complaintOf(told), "") << describe({told});
    return seen;
  }
  /// Empty when it was pressed, else what the reader says.
  std::string press(const std::string& name) const {
    Command command = reader({"press", name});
    command.log = stage.desktop.scratch() / "pressed";
    const int code = runToEnd(command);
    return code == 0 ? "" : std::to_string(code) + " " + contentsOf(command.log);
  }

  Stage stage;
  std::unique_ptr<ChildProcess> registry;
};

TEST_F(Accessibility, AScreenReaderPressesPlayNextAndReadsTimeAndLamps) {
  stage.open({.mode = 2, .timeInverted = true}, {"1"});
  ASSERT_EQ(press("Auto next"), "");
  ASSERT_EQ(press("Play Next"), "");
  EXPECT_TRUE(stage.recording->waitForTone(stage.songs[1].hertz, 5));
  pauseFor(1.5);
  const std::vector<Told> seen = controls();
  EXPECT_EQ(named(seen, "Play Next").role, "push button") << describe(seen);
  EXPECT_EQ(named(seen, "Play").description, "on");
  EXPECT_EQ(named(seen, "Pause").description, "off");
  EXPECT_EQ(named(seen, "Auto next").role, "check box");
  EXPECT_EQ(named(seen, "Auto next").description, "on");
  EXPECT_TRUE(named(seen, "Auto next").can("checked"));
  EXPECT_EQ(named(seen, "Random").description, "off");
  EXPECT_FALSE(named(seen, "Random").can("checked"));
  const std::string time = named(seen, "Time").description;
  EXPECT_TRUE(time > "00:00" && time < "00:15") << time;
  EXPECT_EQ(named(seen, "Song").description, "b");
  EXPECT_EQ(named(seen, "Songs").role, "list");
  EXPECT_EQ(named(seen, "Nerolith").role, "frame");
  EXPECT_EQ(named(seen, "Drive").role, "combo box");
  EXPECT_EQ(named(seen, "Drive").description, "/");
  EXPECT_EQ(named(seen, "Position").role, "slider");
  EXPECT_FALSE(named(seen, "Position").value.empty());
}

TEST_F(Accessibility, EveryControlOfEveryWindowHasItsRoleNameAndValue) {
  const auto list = stage.desktop.music() / "best.m3u";
  std::ofstream(list) << stage.songs[0].file.string() << "\r\n";
  stage.open({.mode = 1}, {"1"});
  expectWords({"Nerolith", "Songs", "Folders", "Songs counted", "Total selected playtime"});
  ASSERT_TRUE(stage.player->openFromMenu({"Up", "Return"}, "Settings"));
  expectWords({"Settings", "Key 'F10'", "Enable", "Save Settings"});
  stage.player->key("Escape");
  ASSERT_TRUE(stage.player->waitForFocus("Nerolith", 10));
  ASSERT_TRUE(stage.player->openFromMenu({"Up", "Up", "Return"}, "recording section"));
  const std::vector<Told> section =
      expectWords({"Nerolith recording section", "Peak level", "Stop recording at MB", "Exit",
                   "Trouble with the recording", "Outcome of the recording"});
  EXPECT_EQ(named(section, "Peak indicator").description, "green");
  stage.player->key("shift+Tab");
  stage.player->key("space");  // Exit
  ASSERT_TRUE(waitUntil(10, [&] { return !stage.player->showsTitle("recording section"); }));
  ASSERT_TRUE(stage.player->waitForFocus("Nerolith", 10));
  stage.player->key("alt+a");
  ASSERT_TRUE(stage.player->chooseFile("Add selected files to playlist (*.m3u)", list.string()));
  ASSERT_TRUE(stage.player->waitForFocus(list.string(), 10));
  expectWords({list.string(), "Songs of the playlist", "Line count", "Next M3U",
               "Trouble with the playlist"});
}

}  // namespace
}  // namespace nerolith::endtoend
