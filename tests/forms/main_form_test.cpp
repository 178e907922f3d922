#include "forms/main_form.h"

#include <gtest/gtest.h>

namespace nerolith::forms {
namespace {

TEST(MainForm, ThePlaytimeBeginsAtZeroAndSaysHowItIsRead) {
  const MainForm form;
  EXPECT_EQ(form.Label4.caption(), "00:00");
  EXPECT_EQ(form.Label4.toolTip(), "Total selected playtime (dd:hh:mm:ss)");
  EXPECT_FALSE(form.playtimeBar.visible());
  EXPECT_FALSE(form.playtimeDone.visible());
}

TEST(MainForm, TheListIsCountedInTwoLabels) {
  const MainForm form;
  EXPECT_EQ(form.Label3.caption(), "0");
  EXPECT_EQ(form.Label3.toolTip(), "List count");
  EXPECT_EQ(form.Label2.caption(), "0");
  EXPECT_EQ(form.Label2.toolTip(), "Select count");
}

}  // namespace
}  // namespace nerolith::forms
