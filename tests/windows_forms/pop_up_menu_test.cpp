#include <gtest/gtest.h>

#include "controls/menu.h"
#include "windows_forms/shown_form.h"

namespace nerolith::windows_forms {
namespace {

// The loop of the menu takes the keys that are waiting for it.
struct PopUpMenu : testing::Test {
  PopUpMenu() { menu.setItems({&count, &other}); }

  void popUpAndChoose(int item) {
    shown.form.form.popUpMenu(menu);
    for (int i = 0; i < item; ++i) key(VK_DOWN);
    key(VK_RETURN);
    shown.settle();
  }
  void popUpAndLeave() {
    shown.form.form.popUpMenu(menu);
    key(VK_ESCAPE);
    shown.settle();
  }
  void key(WPARAM code) { PostMessageW(shown.window(), WM_KEYDOWN, code, 1); }

  ShownForm shown;
  controls::MenuItem count{"Count"}, other{"Other"}, menu;
  std::string heard;
  std::vector<base::Subscription> subscriptions;
};

TEST_F(PopUpMenu, EscapeChoosesNothing) {
  subscriptions.push_back(count.click.subscribe([this] { heard += "count "; }));
  popUpAndLeave();
  EXPECT_EQ(heard, "");
}

TEST_F(PopUpMenu, OutlivesEventsThatRunInsideAnAction) {
  subscriptions.push_back(count.click.subscribe([this] {
    heard += "count ";
    shown.form.List1.setItems({"another song.mp3"});
    shown.form.Label1.setCaption("12:34");
    menu.setItems({&other});  // the entries that were shown are gone
    popUpAndChoose(1);        // and the menu comes up again while the action runs
    shown.settle();
    heard += "done ";
  }));
  subscriptions.push_back(other.click.subscribe([this] { heard += "other "; }));
  popUpAndChoose(1);
  EXPECT_EQ(heard, "count other done ");
  menu.setItems({&count, &other});
  popUpAndChoose(2);
  EXPECT_EQ(heard, "count other done other ");
}

TEST_F(PopUpMenu, AnActionMayCloseTheWindow) {
  subscriptions.push_back(other.click.subscribe([this] {
    PostMessageW(shown.window(), WM_CLOSE, 0, 0);
    shown.settle();
    heard += IsWindowVisible(shown.window()) ? "shown" : "closed";
  }));
  popUpAndChoose(2);
  EXPECT_EQ(heard, "closed");
}

}  // namespace
}  // namespace nerolith::windows_forms
