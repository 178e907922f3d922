#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include "base/failure.h"
#include "forms/editor_form.h"
#include "windows_forms/shown_form.h"
#include "windows_program/object_count.h"

namespace nerolith::windows_forms {
namespace {

struct FormWindowTest : ShownFormTest {
  HWND list() const { return shown.child(WC_LISTVIEWW); }
  int rowHeight() const {
    RECT row{};
    ListView_GetItemRect(list(), 0, &row, LVIR_BOUNDS);
    return static_cast<int>(row.bottom - row.top);
  }
};

TEST_F(FormWindowTest, AFaceHearsPressReleaseAndThenTheClick) {
  hear(form.Label8[3].mouseDown, "down");
  hear(form.Label8[3].mouseUp, "up");
  hear(form.Label8[3].click, "click");
  shown.click(shown.child(L"BUTTON", L"&Stop"), 10, 10);
  EXPECT_EQ(heard, "down up click ");
}

TEST_F(FormWindowTest, AClickedFaceLeavesTheKeyboardWithTheSongs) {
  SetForegroundWindow(shown.window());
  form.List1.setFocus();
  shown.click(shown.child(L"BUTTON", L"&Stop"), 10, 10);
  shown.click(shown.child(L"BUTTON", L"Random"), 5, 5);
  EXPECT_EQ(GetFocus(), list());
}

TEST_F(FormWindowTest, AFaceLetGoOutsideIsNotClicked) {
  hear(form.Label8[3].mouseUp, "up");
  hear(form.Label8[3].click, "click");
  const HWND stop = shown.child(L"BUTTON", L"&Stop");
  PostMessageW(stop, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(10, 10));
  PostMessageW(stop, WM_LBUTTONUP, 0, MAKELPARAM(10, -20));
  shown.settle();
  EXPECT_EQ(heard, "up ");
}

TEST_F(FormWindowTest, ADisabledFaceHearsNothing) {
  hear(form.Label8[1].click, "click");
  form.Command3.setEnabled(false);
  shown.settle();
  shown.click(shown.child(L"BUTTON", L"Play &Next"), 10, 10);
  EXPECT_EQ(heard, "");
}

TEST_F(FormWindowTest, AnAccessKeyClicksItsFace) {
  hear(form.Label8[2].click, "pause");
  PostMessageW(list(), WM_SYSCHAR, 'p', 1 << 29);
  shown.settle();
  EXPECT_EQ(heard, "pause ");
}

TEST_F(FormWindowTest, TheFormHearsAKeyBeforeTheListDoes) {
  form.List1.setListIndex(2);
  hear(form.form.keyDown, "form");
  hear(form.List1.click, "list");
  shown.key(list(), VK_UP);
  EXPECT_EQ(heard, "form list ");
}

TEST_F(FormWindowTest, EnterStartsNoSong) {
  form.List1.setListIndex(2);
  hear(form.form.keyDown, "form");
  hear(form.List1.dblClick, "start");
  shown.key(list(), VK_RETURN);
  EXPECT_EQ(heard, "form ");
}

TEST_F(FormWindowTest, ALampSwitchTellsItsWordsAndFollowsItsLamp) {
  hear(form.Label7[2].click, "random");
  const HWND box = shown.child(L"BUTTON", L"Random");
  shown.click(box, 5, 5);
  EXPECT_EQ(heard, "random ");
  EXPECT_EQ(SendMessageW(box, BM_GETCHECK, 0, 0), BST_UNCHECKED);
  form.Label6[2].setBackColour(controls::kRed);
  EXPECT_EQ(SendMessageW(box, BM_GETCHECK, 0, 0), BST_CHECKED);
}

TEST_F(FormWindowTest, AClickInTheListMakesItsRowCurrentAndSelectsItAlone) {
  form.List1.setSelected(7, true);
  shown.click(list(), 60, 3 * rowHeight() + 4);
  EXPECT_EQ(form.List1.listIndex(), 3);
  EXPECT_TRUE(form.List1.selected(3));
  EXPECT_EQ(form.List1.selectedCount(), 1);
}

TEST_F(FormWindowTest, ShiftExtendsAndControlTogglesTheSelection) {
  shown.click(list(), 60, 2 * rowHeight() + 4);
  shown.click(list(), 60, 5 * rowHeight() + 4, MK_SHIFT);
  EXPECT_EQ(form.List1.selectedCount(), 4);
  shown.click(list(), 60, 3 * rowHeight() + 4, MK_CONTROL);
  EXPECT_EQ(form.List1.selectedCount(), 3);
  EXPECT_FALSE(form.List1.selected(3));
}

TEST_F(FormWindowTest, TheListAnswersForSelectionAndTextFromItsModel) {
  form.List1.setSelected(4, true);
  EXPECT_EQ(ListView_GetItemState(list(), 4, LVIS_SELECTED), UINT{LVIS_SELECTED});
  EXPECT_EQ(ListView_GetItemState(list(), 5, LVIS_SELECTED), 0U);
  wchar_t text[32] = L"";
  ListView_GetItemText(list(), 4, 0, text, 32);
  EXPECT_STREQ(text, L"Song e.mp3");
}

TEST_F(FormWindowTest, DraggingTheThumbScrollsAndChangesOnceAtTheEnd) {
  form.HScroll1.setMin(1);
  form.HScroll1.setMax(1000);
  form.HScroll1.setValue(1);
  hear(form.HScroll1.scroll, "scroll");
  hear(form.HScroll1.change, "change");
  const HWND bar = shown.child(TRACKBAR_CLASSW);
  PostMessageW(bar, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(9, 15));
  PostMessageW(bar, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(200, 15));
  PostMessageW(bar, WM_LBUTTONUP, 0, MAKELPARAM(200, 15));
  shown.settle();
  EXPECT_EQ(heard, "scroll change ");
  EXPECT_EQ(SendMessageW(bar, TBM_GETPOS, 0, 0), form.HScroll1.value());
  EXPECT_GT(form.HScroll1.value(), 100);
}

TEST_F(FormWindowTest, PressingTheWordsOfTheDriveIsItsFocusEventEachTime) {
  hear(form.Drive1.gotFocus, "drive");
  form.List1.setFocus();
  const HWND drive = shown.child(L"COMBOBOX");
  shown.click(drive, 20, 10);
  shown.click(drive, 20, 10);
  EXPECT_EQ(heard, "drive drive ");
}

TEST_F(FormWindowTest, ClosingTheWindowClosesTheForm) {
  hear(form.form.unload, "unload");
  PostMessageW(shown.window(), WM_CLOSE, 0, 0);
  shown.settle();
  EXPECT_EQ(heard, "unload ");
  EXPECT_FALSE(IsWindowVisible(shown.window()));
}

TEST_F(FormWindowTest, HiddenAndShownAgainItIsAsLargeAsItWas) {
  ShowWindow(shown.window(), SW_MAXIMIZE);
  form.form.setVisible(false);
  EXPECT_FALSE(IsWindowVisible(shown.window()));
  form.form.setVisible(true);
  EXPECT_TRUE(IsZoomed(shown.window()));
}

TEST_F(FormWindowTest, AFailureInAHandlerStaysInsideTheWindow) {
  subscriptions.push_back(
      form.Label8[3].click.subscribe([] { throw base::Failure("no such thing"); }));
  hear(form.Label8[0].click, "play");
  shown.click(shown.child(L"BUTTON", L"&Stop"), 10, 10);
  shown.click(shown.child(L"BUTTON", L"P&lay"), 10, 10);
  EXPECT_EQ(heard, "play ");
}

TEST_F(FormWindowTest, HundredThousandEntriesAreShownAndSelectedAtOnce) {
  std::vector<std::string> many;
  for (int i = 0; i < 100000; ++i) many.push_back("Song " + std::to_string(i) + ".mp3");
  const DWORD before = GetTickCount();
  form.List1.setItems(std::move(many));
  form.List1.selectAll();
  form.List1.setListIndex(99999);
  UpdateWindow(list());
  const DWORD taken = GetTickCount() - before;
  RecordProperty("milliseconds", static_cast<int>(taken));
  EXPECT_LT(taken, 500U);
  EXPECT_EQ(ListView_GetItemCount(list()), 100000);
  EXPECT_EQ(SendMessageW(list(), LVM_GETSELECTEDCOUNT, 0, 0), 100000);
}

TEST_F(FormWindowTest, PaintingKeepsNoDrawingObjects) {
  const auto repaint = [this] {
    RedrawWindow(shown.window(), nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    form.Label1.setCaption(form.Label1.caption() == "00:01" ? "00:02" : "00:01");
    form.List1.setListIndex((form.List1.listIndex() + 1) % 20);
    shown.settle();
  };
  repaint();
  const auto objects = [] { return windows_program::objectsOf(GetCurrentProcess()).drawing; };
  const long before = objects();
  ASSERT_GT(before, 10) << "they are not counted";
  for (int i = 0; i < 30; ++i) repaint();
  EXPECT_LE(objects(), before + 2);
}

TEST_F(FormWindowTest, AWindowWhoseFormChangesAsItComesUpIsMadeOnce) {
  static std::vector<HWND> seen;
  seen.clear();
  forms::EditorForm editor;
  const auto changes = editor.form_4.activate.subscribe([&editor] {
    editor.form_4.setCaption("C:\\best.m3u");
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM) -> BOOL {
          seen.push_back(window);
          return TRUE;
        },
        0);
  });
  shown.host.add(editor.form_4);
  editor.form_4.setVisible(true);
  shown.settle();
  EXPECT_FALSE(seen.empty());
  for (const HWND window : seen) EXPECT_TRUE(IsWindow(window));
  shown.host.remove(editor.form_4);
}

}  // namespace
}  // namespace nerolith::windows_forms
