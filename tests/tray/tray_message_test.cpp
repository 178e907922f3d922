#include "tray/tray_message.h"

#include <gtest/gtest.h>

namespace nerolith::tray {
namespace {

TEST(TrayMessage, AsksForTheMenuOnLeftDownLeftDoubleAndRightDown) {
  EXPECT_TRUE(asksForMenu(7695));
  EXPECT_TRUE(asksForMenu(7725));
  EXPECT_TRUE(asksForMenu(7740));
}

TEST(TrayMessage, LeftUpDoesNothing) { EXPECT_FALSE(asksForMenu(7710)); }

TEST(TrayMessage, OtherMouseMessagesDoNothing) {
  EXPECT_FALSE(asksForMenu(512 * 15));  // move
  EXPECT_FALSE(asksForMenu(517 * 15));  // right up
  EXPECT_FALSE(asksForMenu(518 * 15));  // right double click
  EXPECT_FALSE(asksForMenu(519 * 15));  // middle down
  EXPECT_FALSE(asksForMenu(0));
}

TEST(TrayMessage, TheValuesAreComparedAsTheyStand) {
  EXPECT_FALSE(asksForMenu(513));       // a message that was not scaled
  EXPECT_FALSE(asksForMenu(513 * 12));  // or scaled for a display of 120 dots per inch
  for (const float near : {7694.0F, 7696.0F, 7695.5F, 7739.5F, -7695.0F})
    EXPECT_FALSE(asksForMenu(near)) << near;
}

TEST(TrayMessage, TheValuesAreTheMessagesTimesFifteen) {
  EXPECT_EQ(kLeftButtonDown, 513 * 15);
  EXPECT_EQ(kLeftButtonUp, 514 * 15);
  EXPECT_EQ(kLeftDoubleClick, 515 * 15);
  EXPECT_EQ(kRightButtonDown, 516 * 15);
}

}  // namespace
}  // namespace nerolith::tray
