#include "forms/editor_form.h"

#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include "windows_forms/held_key.h"
#include "windows_forms/shown_form.h"

namespace nerolith::windows_forms {
namespace {

HWND listIn(HWND window) { return FindWindowExW(window, nullptr, WC_LISTVIEWW, nullptr); }

struct EditorFormTest : testing::Test {
  EditorFormTest() : host(events) {
    form.List1.setItems({"C:\\Music\\a.mp3", "", "C:\\Music\\c.mp3"});
    host.add(form.form_4);
    form.form_4.setVisible(true);
    form.form_4.bringForward();
    form.List1.setFocus();
    settle();
    clicks = form.List1.rowClick.subscribe(
        [this](int row, controls::MouseButton) { clicked.push_back(row); });
  }
  ~EditorFormTest() override { host.remove(form.form_4); }

  void settle() { events.runWaitingEvents(); }
  HWND window() const { return host.windowOf(form.form_4)->handle(); }
  HWND list() const { return listIn(window()); }
  RECT row(int position) const {
    RECT area{};
    ListView_GetItemRect(list(), position, &area, LVIR_BOUNDS);
    return area;
  }
  void press(UINT down, int downRow, UINT up, int upRow, WPARAM held = 0) {
    PostMessageW(list(), down, MK_LBUTTON | held, MAKELPARAM(60, row(downRow).top + 4));
    PostMessageW(list(), up, held, MAKELPARAM(60, row(upRow).top + 4));
    settle();
  }

  forms::EditorForm form;
  Win32EventQueue events;
  Win32WindowHost host;
  std::vector<int> clicked;
  base::Subscription clicks;
};

TEST_F(EditorFormTest, AButtonLetGoWhereItWentDownIsAClickOnThatEntry) {
  press(WM_LBUTTONDOWN, 2, WM_LBUTTONUP, 2);
  press(WM_LBUTTONDOWN, 2, WM_LBUTTONUP, 2);
  press(WM_RBUTTONDOWN, 1, WM_RBUTTONUP, 1);
  press(WM_LBUTTONDOWN, 1, WM_LBUTTONUP, 0);
  EXPECT_EQ(clicked, (std::vector<int>{2, 2, 1}));
}

TEST_F(EditorFormTest, AClickBelowTheEntriesIsOneOnNone) {
  PostMessageW(list(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(60, row(2).bottom + 20));
  PostMessageW(list(), WM_LBUTTONUP, 0, MAKELPARAM(60, row(2).bottom + 20));
  settle();
  EXPECT_EQ(clicked, (std::vector<int>{-1}));
}

TEST_F(EditorFormTest, HasExactlyOneEntrySelectedWhateverIsHeld) {
  press(WM_LBUTTONDOWN, 0, WM_LBUTTONUP, 0);
  press(WM_LBUTTONDOWN, 2, WM_LBUTTONUP, 2, MK_SHIFT);
  EXPECT_EQ(form.List1.selectedCount(), 1);
  EXPECT_EQ(ListView_GetItemState(list(), 2, LVIS_SELECTED), UINT{LVIS_SELECTED});
  EXPECT_EQ(ListView_GetItemState(list(), 0, LVIS_SELECTED), 0U);
}

TEST_F(EditorFormTest, AMenuOpenedByAKeyBelongsBelowTheCurrentEntry) {
  form.List1.setListIndex(1);
  const auto* view = dynamic_cast<const ControlView*>(Window::of(list()));
  ASSERT_NE(view, nullptr);
  POINT place = view->menuPlace();
  ScreenToClient(list(), &place);
  EXPECT_EQ(place.y, row(1).bottom);
}

TEST_F(EditorFormTest, ShiftF10IsTheMenuKey) {
  controls::KeyPress heard;
  const auto keys = form.form_4.keyDown.subscribe([&](controls::KeyPress key) { heard = key; });
  {
    const HeldKey shift(VK_SHIFT);
    PostMessageW(list(), WM_SYSKEYDOWN, VK_F10, 1);
    settle();
  }
  EXPECT_EQ(heard.key, controls::Key::Menu);
  PostMessageW(list(), WM_SYSKEYDOWN, VK_F10, 1);
  settle();
  EXPECT_EQ(heard.key, controls::Key::F10);
}

TEST_F(EditorFormTest, IsFilledAnewWithoutJumpingAway) {
  std::vector<std::string> many;
  for (int i = 0; i < 500; ++i) many.push_back("C:\\Music\\" + std::to_string(i) + ".mp3");
  form.List1.setItems(many);
  form.List1.setListIndex(300);
  settle();
  const int top = ListView_GetTopIndex(list());
  EXPECT_GT(top, 200);
  many.erase(many.begin() + 300);
  {
    const controls::ListBox::Walk hidden(form.List1);
    form.List1.setItems(many);
    form.List1.setListIndex(300);
  }
  settle();
  EXPECT_NEAR(ListView_GetTopIndex(list()), top, 1);
}

}  // namespace
}  // namespace nerolith::windows_forms
