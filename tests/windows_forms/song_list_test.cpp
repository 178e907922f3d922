// What keys, mouse and scroll bar do to the list of songs.
#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "windows_forms/held_key.h"
#include "windows_forms/shown_form.h"

namespace nerolith::windows_forms {
namespace {

struct SongListTest : ShownFormTest {
  HWND list() const { return shown.child(WC_LISTVIEWW); }
  LPARAM row(int position) const {
    RECT area{};
    ListView_GetItemRect(list(), position, &area, LVIR_BOUNDS);
    return MAKELPARAM(60, area.top + 4);
  }
  std::string selected() const {
    std::string letters;
    for (int i = 0; i < form.List1.count(); ++i)
      if (form.List1.selected(i)) letters += form.List1.item(i)[5];  // "Song x.mp3"
    return letters;
  }
  void key(WPARAM code) { shown.key(list(), code); }
  void type(const std::wstring& text) {
    for (const wchar_t sign : text) PostMessageW(list(), WM_CHAR, sign, 1);
    shown.settle();
  }
};

TEST_F(SongListTest, ItsKeysMoveAndSelectAlone) {
  form.List1.setListIndex(3);
  key(VK_DOWN);
  EXPECT_EQ(selected(), "e");
  key(VK_UP);
  key(VK_UP);
  EXPECT_EQ(selected(), "c");
  key(VK_END);
  EXPECT_EQ(selected(), "t");
  key(VK_HOME);
  EXPECT_EQ(selected(), "a");
  key(VK_UP);
  EXPECT_EQ(form.List1.listIndex(), 0);
  const int page = ListView_GetCountPerPage(list()) - 1;
  key(VK_NEXT);
  EXPECT_EQ(form.List1.listIndex(), std::min(page, 19));
  key(VK_PRIOR);
  EXPECT_EQ(form.List1.listIndex(), 0);
}

TEST_F(SongListTest, WithShiftAKeySelectsUpToWhereItGoesWithControlItOnlyGoes) {
  key(VK_HOME);
  key(VK_DOWN);
  {
    const HeldKey shift(VK_SHIFT);
    key(VK_DOWN);
    key(VK_DOWN);
    EXPECT_EQ(selected(), "bcd");
    key(VK_UP);
    key(VK_UP);
    key(VK_UP);
    EXPECT_EQ(selected(), "ab");
  }
  const HeldKey control(VK_CONTROL);
  key(VK_END);
  EXPECT_EQ(selected(), "ab");
  EXPECT_EQ(form.List1.listIndex(), 19);
}

TEST_F(SongListTest, ControlWithAOrSpaceSelectsAllOrTurnsOneOver) {
  form.List1.setListIndex(2);
  const HeldKey control(VK_CONTROL);
  key(VK_SPACE);
  EXPECT_EQ(selected(), "c");
  key(VK_SPACE);
  EXPECT_EQ(selected(), "");
  key('A');
  EXPECT_EQ(form.List1.selectedCount(), 20);
}

TEST_F(SongListTest, LettersLookForANameAndSpaceIsOnlyHeard) {
  form.List1.setItems({"Alpha", "Beta", "Bravo", "Zulu"});
  hear(form.List1.keyPress, "key");
  type(L"bR");
  EXPECT_EQ(form.List1.listIndex(), 2);
  EXPECT_EQ(form.List1.selectedCount(), 1);
  form.List1.setListIndex(1);
  Sleep(1100);  // the letters of one second belong together
  type(L"b ");
  EXPECT_EQ(form.List1.listIndex(), 2) << "a first letter looks behind the current entry";
  EXPECT_EQ(heard, "key key key key ");
}

TEST_F(SongListTest, ASweepSelectsWhatItCrossesAndEndsWithTheButton) {
  PostMessageW(list(), WM_LBUTTONDOWN, MK_LBUTTON, row(2));
  PostMessageW(list(), WM_MOUSEMOVE, MK_LBUTTON, row(5));
  shown.settle();
  EXPECT_EQ(selected(), "cdef");
  PostMessageW(list(), WM_MOUSEMOVE, MK_LBUTTON, row(3));
  PostMessageW(list(), WM_LBUTTONUP, 0, row(3));
  PostMessageW(list(), WM_MOUSEMOVE, 0, row(6));
  shown.settle();
  EXPECT_EQ(selected(), "cd");
}

TEST_F(SongListTest, APressBesideTheEntriesSelectsNoneUnlessAKeyIsHeld) {
  form.List1.setItems({"Song a.mp3", "Song b.mp3"});
  form.List1.selectAll();
  const LPARAM below = MAKELPARAM(60, HIWORD(row(1)) + 60);
  PostMessageW(list(), WM_LBUTTONDOWN, MK_LBUTTON | MK_SHIFT, below);
  PostMessageW(list(), WM_LBUTTONUP, MK_SHIFT, below);
  shown.settle();
  EXPECT_EQ(selected(), "ab");
  PostMessageW(list(), WM_LBUTTONDOWN, MK_LBUTTON, below);
  PostMessageW(list(), WM_LBUTTONUP, 0, below);
  shown.settle();
  EXPECT_EQ(selected(), "");
}

TEST_F(SongListTest, TheRightButtonLeavesTheSelectionAndADoubleClickNamesItsEntry) {
  form.List1.setSelected(1, true);
  hear(form.List1.mouseDown, "down");
  PostMessageW(list(), WM_RBUTTONDOWN, MK_RBUTTON, row(4));
  PostMessageW(list(), WM_RBUTTONUP, 0, row(4));
  shown.settle();
  EXPECT_EQ(selected(), "b");
  EXPECT_EQ(heard, "down ");
  hear(form.List1.dblClick, "start");
  PostMessageW(list(), WM_LBUTTONDBLCLK, MK_LBUTTON, row(4));
  shown.settle();
  EXPECT_EQ(form.List1.listIndex(), 4);
  EXPECT_EQ(heard, "down down start ");
}

TEST_F(SongListTest, AButtonThatWentDownElsewhereIsNotLetGoHere) {
  hear(form.List1.mouseUp, "up");
  PostMessageW(list(), WM_LBUTTONUP, 0, row(2));
  shown.settle();
  EXPECT_EQ(heard, "");
  shown.click(list(), 60, 4);
  EXPECT_EQ(heard, "up ");
}

struct ScrollBarTest : SongListTest {
  ScrollBarTest() {
    std::vector<std::string> many;
    for (int i = 0; i < 500; ++i) many.push_back("Song " + std::to_string(i) + ".mp3");
    form.List1.setItems(std::move(many));
    UpdateWindow(list());
    shown.settle();
  }
  HWND bar() const { return shown.child(L"NerolithWindow", L"Scroll bar"); }
  int height() const {
    RECT area;
    GetClientRect(bar(), &area);
    return static_cast<int>(area.bottom);
  }
  int top() const { return ListView_GetTopIndex(list()); }
};

TEST_F(ScrollBarTest, APressBesideItsThumbGoesAPageThatWay) {
  const int page = ListView_GetCountPerPage(list());
  shown.click(bar(), 5, height() - 2);
  EXPECT_EQ(top(), page);
  shown.click(bar(), 5, height() - 2);
  EXPECT_EQ(top(), 2 * page);
  shown.click(bar(), 5, 1);
  EXPECT_EQ(top(), page);
}

TEST_F(ScrollBarTest, ItsThumbIsDraggedToTheEndAndBackAndThenLetGo) {
  SendMessageW(bar(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 10));
  SendMessageW(bar(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(5, height() + 50));
  EXPECT_EQ(top(), 500 - ListView_GetCountPerPage(list()));
  SendMessageW(bar(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(5, 0));
  EXPECT_EQ(top(), 0);
  SendMessageW(bar(), WM_LBUTTONUP, 0, MAKELPARAM(5, 0));
  SendMessageW(bar(), WM_MOUSEMOVE, 0, MAKELPARAM(5, height()));
  EXPECT_EQ(top(), 0);
}

}  // namespace
}  // namespace nerolith::windows_forms
