#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <sstream>

#include "endtoend/stage.h"

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

TEST_F(Accessibility, EveryControlHasANameAndWhatCanBePressedCanBeReached) {
  stage.open({.mode = 1}, {"1"});
  const std::vector<Told> seen = controls();
  ASSERT_GT(seen.size(), 20U) << describe(seen);
  for (const Told& told : seen) {
    const bool silent = told.role == "filler" || told.role == "panel" || told.role == "scroll bar";
    if (!silent && told.can("showing")) {
      EXPECT_NE(told.name, "") << describe({told});
    }
    if (told.role == "push button" || told.role == "check box" || told.role == "slider") {
      EXPECT_TRUE(told.can("focusable") || !told.can("enabled")) << describe({told});
    }
  }
  if (testing::Test::HasFailure()) std::cout << describe(seen);
}

}  // namespace
}  // namespace nerolith::endtoend
