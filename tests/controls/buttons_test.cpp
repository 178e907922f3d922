#include "controls/buttons.h"

#include <gtest/gtest.h>

#include "controls/event_count.h"

namespace nerolith::controls {
namespace {

TEST(CommandButton, OnlyTheUsersPressRaisesClick) {
  CommandButton button;
  const EventCount clicks(button.click);
  button.setCaption("&Stop");
  button.setEnabled(false);
  button.setVisible(false);
  button.userClick();
  EXPECT_EQ(clicks(), 0);
  button.setEnabled(true);
  button.userClick();
  EXPECT_EQ(clicks(), 1);
}

struct Modes {
  OptionButton one, two, three;
  Modes() { OptionButton::group({&one, &two, &three}); }
};

TEST(OptionButton, TurnedOnByCodeRaisesItsClickAndTurnsTheOthersOff) {
  Modes modes;
  const EventCount one(modes.one.click), two(modes.two.click);
  modes.one.setValue(true);
  modes.two.setValue(true);
  EXPECT_EQ(one(), 1);
  EXPECT_EQ(two(), 1);
  EXPECT_FALSE(modes.one.value());
  EXPECT_TRUE(modes.two.value());
}

TEST(OptionButton, TurnedOnWhenOnOrTurnedOffRaisesNothing) {
  Modes modes;
  modes.one.setValue(true);
  const EventCount clicks(modes.one.click);
  modes.one.setValue(true);
  modes.one.userClick();
  modes.one.setValue(false);
  EXPECT_EQ(clicks(), 0);
}

TEST(OptionButton, TheOthersAreOffWhenItsClickIsRaised) {
  Modes modes;
  modes.one.setValue(true);
  bool oneWasOn = true;
  const auto heard = modes.three.click.subscribe([&] { oneWasOn = modes.one.value(); });
  modes.three.userClick();
  EXPECT_FALSE(oneWasOn);
}

TEST(OptionButton, TheUserCannotTurnADisabledOneOn) {
  Modes modes;
  modes.one.setEnabled(false);
  modes.one.userClick();
  EXPECT_FALSE(modes.one.value());
}

TEST(CheckBox, AnotherValueByCodeRaisesClick) {
  CheckBox box;
  const EventCount clicks(box.click);
  box.setValue(1);
  box.setValue(1);
  box.setValue(2);
  EXPECT_EQ(clicks(), 2);
}

TEST(CheckBox, TheUserTogglesAndTurnsGreyOff) {
  CheckBox box;
  box.userClick();
  EXPECT_EQ(box.value(), 1);
  box.setValue(2);
  box.userClick();
  EXPECT_EQ(box.value(), 0);
  box.setEnabled(false);
  box.userClick();
  EXPECT_EQ(box.value(), 0);
}

}  // namespace
}  // namespace nerolith::controls
