// What keys, mouse and wheel do to the controls of the main window.
#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

#include "controls/menu.h"
#include "windows_forms/held_key.h"
#include "windows_forms/shown_form.h"

namespace nerolith::windows_forms {
namespace {

using ControlsTest = ShownFormTest;

struct SliderTest : ShownFormTest {
  SliderTest() {
    form.HScroll1.setMin(1);
    form.HScroll1.setMax(1000);
    form.HScroll1.setLargeChange(10);
    form.HScroll1.setValue(500);
    hear(form.HScroll1.scroll, "scroll");
    hear(form.HScroll1.change, "change");
  }
  HWND bar() const { return shown.child(TRACKBAR_CLASSW); }
  int after(WPARAM key) {
    shown.key(bar(), key);
    return form.HScroll1.value();
  }
};

TEST_F(SliderTest, ItsKeysStepPageAndGoToItsEnds) {
  EXPECT_EQ(after(VK_LEFT), 499);
  EXPECT_EQ(after(VK_DOWN), 498);
  EXPECT_EQ(after(VK_RIGHT), 499);
  EXPECT_EQ(after(VK_UP), 500);
  EXPECT_EQ(after(VK_PRIOR), 510);
  EXPECT_EQ(after(VK_NEXT), 500);
  EXPECT_EQ(after(VK_END), 1000);
  EXPECT_EQ(after(VK_HOME), 1);
  EXPECT_EQ(heard, "change change change change change change change change ");
}

TEST_F(SliderTest, ThePressOfTheLineMovesTheThumbThereWithoutADrag) {
  form.HScroll1.setValue(1);
  heard.clear();
  shown.click(bar(), 200, 15);
  EXPECT_EQ(heard, "change ");
  EXPECT_GT(form.HScroll1.value(), 100);
}

TEST_F(SliderTest, TheWheelTakesThreeSteps) {
  SendMessageW(bar(), WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
  EXPECT_EQ(form.HScroll1.value(), 503);
  SendMessageW(bar(), WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-2 * WHEEL_DELTA)), 0);
  EXPECT_EQ(form.HScroll1.value(), 497);
}

TEST_F(SliderTest, ADragThatTheSystemBreaksOffEndsWhereItIs) {
  form.HScroll1.setValue(1);
  heard.clear();
  SendMessageW(bar(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(9, 15));
  SendMessageW(bar(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(150, 15));
  SetCapture(shown.window());
  SendMessageW(bar(), WM_MOUSEMOVE, 0, MAKELPARAM(200, 15));
  ReleaseCapture();
  EXPECT_EQ(heard, "scroll change ");
}

struct FolderListTest : ShownFormTest {
  FolderListTest() {
    form.Dir1.setPath("C:\\Music");
    form.Dir1.setContents({"C:\\", "C:\\Music"}, {"Jazz", "Rock"});
    form.Dir1.setVisible(true);
    shown.settle();
    hear(form.Dir1.change, "opened");
    hear(form.Dir1.click, "click");
  }
  HWND list() const { return shown.child(L"LISTBOX"); }
  void mark(WPARAM row) { SendMessageW(list(), LB_SETCURSEL, row, 0); }
};

TEST_F(FolderListTest, ShowsTheWayAndTheFoldersAndMarksWhereItIs) {
  std::vector<std::wstring> names;
  for (WPARAM i = 0; i < static_cast<WPARAM>(SendMessageW(list(), LB_GETCOUNT, 0, 0)); ++i) {
    wchar_t name[64] = L"";
    SendMessageW(list(), LB_GETTEXT, i, reinterpret_cast<LPARAM>(name));
    names.emplace_back(name);
  }
  EXPECT_EQ(names, (std::vector<std::wstring>{L"C:\\", L"Music", L"Jazz", L"Rock"}));
  EXPECT_EQ(SendMessageW(list(), LB_GETCURSEL, 0, 0), 1);
}

TEST_F(FolderListTest, EnterOpensSpaceClicksAndEscHides) {
  mark(3);
  shown.key(list(), VK_SPACE);
  EXPECT_EQ(heard, "click ");
  shown.key(list(), VK_RETURN);
  EXPECT_EQ(heard, "click opened ");
  EXPECT_EQ(form.Dir1.path(), "C:\\Music\\Rock");
  shown.key(list(), VK_ESCAPE);
  EXPECT_FALSE(form.Dir1.visible());
}

TEST_F(FolderListTest, OpensAFolderOfTheRoot) {
  form.Dir1.setPath("C:\\");
  form.Dir1.setContents({"C:\\"}, {"Games", "Music"});
  shown.settle();
  mark(2);
  shown.key(list(), VK_RETURN);
  EXPECT_EQ(form.Dir1.path(), "C:\\Music");
}

TEST_F(FolderListTest, ADoubleClickOpensAStepOfTheWay) {
  mark(0);
  SendMessageW(GetParent(list()), WM_COMMAND, MAKEWPARAM(0, LBN_DBLCLK),
               reinterpret_cast<LPARAM>(list()));
  EXPECT_EQ(form.Dir1.path(), "C:\\");
}

struct DriveListTest : ShownFormTest {
  DriveListTest() {
    form.Drive1.setDrives({{"C:\\", "c:"}, {"D:\\", "d: [Music]"}});
    form.Drive1.setDrive("C:\\");
    shown.settle();
    hear(form.Drive1.change, "drive");
  }
  HWND combo() const { return shown.child(L"COMBOBOX"); }
  LRESULT row() const { return SendMessageW(combo(), CB_GETCURSEL, 0, 0); }
};

TEST_F(DriveListTest, AChosenRowIsTheDriveAndTheWheelChoosesNone) {
  SendMessageW(combo(), CB_SETCURSEL, 1, 0);
  SendMessageW(GetParent(combo()), WM_COMMAND, MAKEWPARAM(0, CBN_SELCHANGE),
               reinterpret_cast<LPARAM>(combo()));
  EXPECT_EQ(form.Drive1.drive(), "D:\\");
  EXPECT_EQ(heard, "drive ");
  SendMessageW(combo(), WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
  EXPECT_EQ(row(), 1);
}

TEST_F(DriveListTest, FollowsTheDriveThatIsSetAndTheListOfDrives) {
  form.Drive1.setDrive("D:\\");
  EXPECT_EQ(row(), 1);
  form.Drive1.setDrives({{"D:\\", "d: [Music]"}});
  EXPECT_EQ(row(), 0);
  EXPECT_EQ(SendMessageW(combo(), CB_GETCOUNT, 0, 0), 1);
  EXPECT_EQ(heard, "drive ");
}

struct LabelTest : ShownFormTest {
  /// The window with this caption.
  HWND shownAs(const controls::Label& label) const {
    for (HWND child = GetWindow(shown.window(), GW_CHILD); child;
         child = GetWindow(child, GW_HWNDNEXT)) {
      wchar_t name[64] = L"";
      GetWindowTextW(child, name, 64);
      if (utf8Of(name) == label.caption() && IsWindowVisible(child)) return child;
    }
    return nullptr;
  }
  std::string clicksOf(controls::Label& label) {
    hear(label.click, "click");
    hear(label.mouseDown, "down");
    const HWND view = shownAs(label);
    shown.click(view, 5, 5);
    PostMessageW(view, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    PostMessageW(view, WM_LBUTTONUP, 0, MAKELPARAM(5, -30));
    PostMessageW(view, WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(5, 5));
    PostMessageW(view, WM_RBUTTONUP, 0, MAKELPARAM(5, 5));
    shown.settle();
    return heard;
  }
};

TEST_F(LabelTest, TheTimeIsClickedWhereItWentDownAndHearsTheRightButton) {
  form.Label1.setCaption("01:23");
  EXPECT_EQ(clicksOf(form.Label1), "down click down down ");
}

TEST_F(LabelTest, APlainLabelLikewise) {
  EXPECT_EQ(clicksOf(form.captionLabel), "down click down down ");
}

TEST_F(ControlsTest, TabGoesRoundAndWithShiftBackPastWhatIsDisabled) {
  SetForegroundWindow(shown.window());
  form.List1.setFocus();
  const HWND start = GetFocus();
  std::vector<HWND> forwards;
  do {
    shown.key(GetFocus(), VK_TAB);
    forwards.push_back(GetFocus());
  } while (GetFocus() != start && forwards.size() < 40);
  ASSERT_EQ(forwards.back(), start);
  ASSERT_GT(forwards.size(), 8U);
  const HeldKey shift(VK_SHIFT);
  shown.key(GetFocus(), VK_TAB);
  EXPECT_EQ(GetFocus(), forwards[forwards.size() - 2]);
  EnableWindow(forwards[forwards.size() - 3], FALSE);
  shown.key(GetFocus(), VK_TAB);
  EXPECT_EQ(GetFocus(), forwards[forwards.size() - 4]);
}

TEST_F(ControlsTest, ControlWithTabIsNotTheWindows) {
  SetForegroundWindow(shown.window());
  form.List1.setFocus();
  const HWND start = GetFocus();
  const HeldKey control(VK_CONTROL);
  shown.key(start, VK_TAB);
  EXPECT_EQ(GetFocus(), start);
}

TEST_F(ControlsTest, TheKeyboardThatComesBackWithTheWindowIsNoMoveOfTheUsers) {
  hear(form.Drive1.gotFocus, "drive");
  const HWND drive = shown.child(L"COMBOBOX");
  SendMessageW(drive, WM_SETFOCUS, 0, 0);
  EXPECT_EQ(heard, "");
  SendMessageW(drive, WM_SETFOCUS, reinterpret_cast<WPARAM>(shown.child(WC_LISTVIEWW)), 0);
  EXPECT_EQ(heard, "drive ");
}

TEST_F(ControlsTest, AWindowThatIsMinimisedIsNotActivated) {
  hear(form.form.activate, "active");
  SendMessageW(shown.window(), WM_ACTIVATE, MAKEWPARAM(WA_ACTIVE, 1), 0);
  SendMessageW(shown.window(), WM_ACTIVATE, MAKEWPARAM(WA_INACTIVE, 0), 0);
  EXPECT_EQ(heard, "");
  SendMessageW(shown.window(), WM_ACTIVATE, MAKEWPARAM(WA_CLICKACTIVE, 0), 0);
  EXPECT_EQ(heard, "active ");
}

TEST_F(ControlsTest, APressThatIsTakenAwayIsNoClick) {
  hear(form.Label8[3].click, "click");
  const HWND stop = shown.child(L"BUTTON", L"&Stop");
  SendMessageW(stop, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(10, 10));
  EXPECT_TRUE(SendMessageW(stop, BM_GETSTATE, 0, 0) & BST_PUSHED);
  SetCapture(shown.window());
  ReleaseCapture();
  EXPECT_FALSE(SendMessageW(stop, BM_GETSTATE, 0, 0) & BST_PUSHED);
  SendMessageW(stop, WM_LBUTTONUP, 0, MAKELPARAM(10, 10));
  EXPECT_EQ(heard, "");
}

TEST_F(ControlsTest, ATickThatLetsEventsRunIsNotInterruptedByTheNext) {
  int depth = 0, deepest = 0, ticks = 0;
  subscriptions.push_back(form.Timer1.tick.subscribe([&] {
    deepest = std::max(deepest, ++depth);
    if (++ticks == 1)
      for (const DWORD until = GetTickCount() + 250; GetTickCount() < until; Sleep(5))
        shown.settle();
    --depth;
  }));
  form.Timer1.setEnabled(true);
  for (int i = 0; i < 2000 && ticks < 3; ++i, Sleep(5)) shown.settle();
  EXPECT_GE(ticks, 3);
  EXPECT_EQ(deepest, 1);
  form.Timer1.setEnabled(false);
  shown.settle();
  const int before = ticks;
  for (const DWORD until = GetTickCount() + 250; GetTickCount() < until; Sleep(5)) shown.settle();
  EXPECT_EQ(ticks, before);
}

// The menu's own loop lets calls run that wait in the queue: one looks at what is shown.
TEST_F(ControlsTest, AMenuGreysWhatIsDisabledAndLeavesOutWhatIsHidden) {
  constexpr UINT kGetMenu = 0x01E1;  // MN_GETHMENU
  controls::MenuItem count{"Count"}, hidden{"Hidden"}, other{"Other"}, line{"-"}, inner{"Inner"},
      menu;
  controls::MenuItem deep{"Deep"};
  inner.setItems({&deep});
  menu.setItems({&count, &hidden, &line, &inner, &other});
  count.setEnabled(false);
  hidden.setVisible(false);
  std::string seen;
  const auto look = [&] {
    const auto popUp =
        reinterpret_cast<HMENU>(SendMessageW(FindWindowW(L"#32768", nullptr), kGetMenu, 0, 0));
    for (int i = 0; i < GetMenuItemCount(popUp); ++i) {
      wchar_t text[32] = L"";
      GetMenuStringW(popUp, static_cast<UINT>(i), text, 32, MF_BYPOSITION);
      const UINT state = GetMenuState(popUp, static_cast<UINT>(i), MF_BYPOSITION);
      seen += utf8Of(text) +
              (state & MF_SEPARATOR ? "-"
               : state & MF_GRAYED  ? "(grey)"
                                    : "") +
              (state & MF_POPUP ? ">" : "") + " ";
    }
    PostMessageW(shown.window(), WM_KEYDOWN, VK_ESCAPE, 1);
  };
  form.form.popUpMenu(menu);
  shown.events.post(look);
  shown.settle();
  EXPECT_EQ(seen, "Count(grey) - Inner> Other ");
}

}  // namespace
}  // namespace nerolith::windows_forms
