#include <gtest/gtest.h>

#include <string>

#include "platform/simulated/simulated_machine.h"

namespace nerolith::platform::simulated {
namespace {

using namespace std::chrono_literals;

struct Window {
  Window() {
    form.setCaption("Main");
    form.setLayout(
        controls::column({controls::leaf(&first), controls::row({controls::leaf(&second)})}));
    form.addTimer(timer);
  }
  controls::Form form;
  controls::TextBox first, second;
  controls::Timer timer{100ms};
};

TEST(SimulatedWindows, RunTheTimersOfAFormWhileItIsHosted) {
  SimulatedMachine machine;
  Window window;
  int ticks = 0;
  const auto ticking = window.timer.tick.subscribe([&] { ++ticks; });
  machine.advance(1s);
  machine.windows.add(window.form);
  machine.advance(1s);
  machine.windows.remove(window.form);
  machine.advance(1s);
  EXPECT_EQ(ticks, 10);
}

TEST(SimulatedWindows, MoveTheFocusToTheControlThatAsks) {
  SimulatedMachine machine;
  Window window;
  machine.windows.add(window.form);
  std::string log;
  const auto got = window.first.gotFocus.subscribe([&] { log += "first "; });
  const auto lost = window.first.lostFocus.subscribe([&] { log += "lost "; });
  const auto second = window.second.gotFocus.subscribe([&] { log += "second "; });
  window.first.setFocus();
  window.first.setFocus();
  window.second.setFocus();
  EXPECT_EQ(log, "first lost second ");
  window.first.setVisible(false);
  window.first.setFocus();
  EXPECT_EQ(machine.windows.focused(), &window.second);
  machine.windows.remove(window.form);
  EXPECT_EQ(machine.windows.focused(), nullptr);
}

TEST(SimulatedWindows, ActivateAFormWhenItIsShownOrBroughtForward) {
  SimulatedMachine machine;
  Window window;
  window.form.setVisible(false);
  machine.windows.add(window.form);
  int activated = 0;
  const auto activation = window.form.activate.subscribe([&] { ++activated; });
  machine.advance(1s);
  EXPECT_EQ(activated, 0);
  window.form.setVisible(true);
  window.form.setCaption("Main, shown");
  EXPECT_EQ(activated, 0);  // not inside the call that shows it
  machine.advance(1ms);
  EXPECT_EQ(activated, 1);
  window.form.bringForward();
  machine.advance(1ms);
  EXPECT_EQ(activated, 2);
  EXPECT_EQ(machine.trace(), "windows.add Main | windows.forward Main, shown");
}

TEST(SimulatedWindows, AFormTakenBackIsNotActivatedAnyMore) {
  SimulatedMachine machine;
  {
    Window window;
    machine.windows.add(window.form);
    machine.windows.remove(window.form);
  }
  machine.advance(1s);
  EXPECT_EQ(machine.timeline.postedCalls(), 0u);
}

TEST(SimulatedWindows, RememberTheMenuThatPoppedUp) {
  SimulatedMachine machine;
  Window window;
  controls::MenuItem menu("Songs");
  machine.windows.add(window.form);
  EXPECT_EQ(machine.windows.lastMenu(), nullptr);
  window.form.popUpMenu(menu);
  EXPECT_EQ(machine.windows.lastMenu(), &menu);
  EXPECT_EQ(machine.trace(), "windows.add Main | windows.popUp Songs");
}

}  // namespace
}  // namespace nerolith::platform::simulated
