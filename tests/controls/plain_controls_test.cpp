#include <gtest/gtest.h>

#include "controls/event_count.h"
#include "controls/form.h"
#include "controls/label.h"
#include "controls/menu.h"
#include "controls/progress_bar.h"
#include "controls/text_box.h"
#include "controls/timer.h"

namespace nerolith::controls {
namespace {

TEST(Control, APropertyThatChangesIsToldOnceAndOneThatStaysIsNot) {
  Label label;
  const EventCount told(label.changed);
  label.setVisible(true);
  label.setEnabled(true);
  label.setToolTip("");
  EXPECT_EQ(told(), 0);
  label.setVisible(false);
  label.setEnabled(false);
  label.setToolTip("List count");
  label.setAccessibleName("Songs");
  EXPECT_EQ(told(), 4);
}

TEST(Control, AskingForTheFocusIsNotGettingIt) {
  TextBox box;
  const EventCount asked(box.focusRequested), got(box.gotFocus);
  box.setFocus();
  EXPECT_EQ(asked(), 1);
  EXPECT_EQ(got(), 0);
}

TEST(Label, PropertiesSetByCodeRaiseNoClick) {
  Label label;
  const EventCount clicks(label.click), told(label.changed);
  label.setCaption("00:00");
  label.setForeColour(kRed);
  label.setBackColour(kYellow);
  EXPECT_EQ(clicks(), 0);
  EXPECT_EQ(told(), 3);
  label.userClick();
  label.setEnabled(false);
  label.userClick();
  EXPECT_EQ(clicks(), 1);
}

TEST(TextBox, AnotherTextRaisesChange) {
  TextBox box;
  const EventCount changes(box.change);
  box.setText("a");
  box.setText("a");
  box.setText("");
  EXPECT_EQ(changes(), 2);
}

TEST(TextBox, ItsChangeSeesTheNewText) {
  TextBox box;
  std::string seen;
  const auto heard = box.change.subscribe([&] { seen = box.text(); });
  box.setText("new");
  EXPECT_EQ(seen, "new");
}

TEST(ProgressBar, SettingItIsOnlyShown) {
  ProgressBar bar;
  const EventCount told(bar.changed);
  bar.setValue(50.5F);
  bar.setValue(50.5F);
  EXPECT_EQ(told(), 1);
}

TEST(Timer, SwitchingItOnOrOffIsToldAndIsNoTick) {
  Timer timer(std::chrono::milliseconds(100));
  const EventCount told(timer.changed), ticks(timer.tick);
  timer.setEnabled(true);
  timer.setEnabled(false);
  timer.setEnabled(true);
  EXPECT_EQ(told(), 2);
  EXPECT_EQ(ticks(), 0);
}

TEST(MenuItem, OnlyTheUsersChoiceRaisesClick) {
  MenuItem item("Settings");
  const EventCount clicks(item.click);
  item.setCaption("Other");
  item.setEnabled(false);
  item.userClick();
  EXPECT_EQ(clicks(), 0);
  item.setEnabled(true);
  item.userClick();
  EXPECT_EQ(clicks(), 1);
  EXPECT_TRUE(MenuItem("-").separator());
}

TEST(Form, ClosingRaisesUnloadWhileItIsStillShownAndThenHidesIt) {
  Form form;
  bool shown = false;
  const auto heard = form.unload.subscribe([&] { shown = form.visible(); });
  form.close();
  EXPECT_TRUE(shown);
  EXPECT_FALSE(form.visible());
}

}  // namespace
}  // namespace nerolith::controls
