// The recording section's form on a window, with the messages that keys and mouse cause.
#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include "forms/recording_form.h"
#include "windows_forms/shown_form.h"

namespace nerolith::windows_forms {
namespace {

class RecordingFormTest : public testing::Test {
 protected:
  RecordingFormTest() {
    form.form.setOwner(shown.form.form);
    form.form.setBesideOwner(true);
    form.form.setResizable(false);
    shown.host.add(form.form);
    form.form.setVisible(true);
    shown.settle();
  }
  ~RecordingFormTest() override { shown.host.remove(form.form); }

  HWND window() const { return shown.host.windowOf(form.form)->handle(); }
  HWND button(const controls::Label& label) const {
    return FindWindowExW(window(), nullptr, L"BUTTON", wideOf(label.caption()).c_str());
  }
  static RECT placeOf(HWND of) {
    RECT place;
    GetWindowRect(of, &place);
    return place;
  }
  COLORREF pixel(HWND of, int x, int y) {
    UpdateWindow(of);
    const HDC dc = GetDC(of);
    const COLORREF colour = GetPixel(dc, x, y);
    ReleaseDC(of, dc);
    return colour;
  }

  ShownForm shown;
  forms::RecordingForm form;
};

TEST_F(RecordingFormTest, EveryActionIsAButtonForMouseAndKeyboard) {
  for (controls::Label* action : {&form.Label1, &form.Label2[0], &form.Label2[1], &form.Label2[2],
                                  &form.Label2[3], &form.Label2[4], &form.Label7, &form.Label8}) {
    int clicks = 0;
    const auto heard = action->click.subscribe([&clicks] { ++clicks; });
    const HWND key = button(*action);
    ASSERT_NE(key, nullptr) << action->caption();
    shown.click(key, 10, 10);
    shown.key(key, VK_RETURN);
    EXPECT_EQ(clicks, 2) << action->caption();
  }
}

TEST_F(RecordingFormTest, ADisabledActionCannotBePressed) {
  int clicks = 0;
  const auto heard = form.Label2[2].click.subscribe([&clicks] { ++clicks; });
  form.Label2[2].setEnabled(false);
  shown.settle();
  EXPECT_FALSE(IsWindowEnabled(button(form.Label2[2])));
  shown.click(button(form.Label2[2]), 10, 10);
  EXPECT_EQ(clicks, 0);
}

TEST_F(RecordingFormTest, ALimitIsTypedIntoItsBoxWhichStandsOnItsColour) {
  HWND box = nullptr;
  while ((box = FindWindowExW(window(), box, L"EDIT", nullptr)) != nullptr)
    if ((GetWindowLongPtrW(box, GWL_STYLE) & ES_READONLY) == 0) break;
  ASSERT_NE(box, nullptr);
  for (const wchar_t sign : {L'6', L'5'}) PostMessageW(box, WM_CHAR, sign, 1);
  shown.settle();
  EXPECT_EQ(form.Text1[0].text(), "65");
  form.Text1[0].setBackColour(forms::kLimitArmed);
  shown.settle();
  const RECT place = placeOf(box);
  EXPECT_EQ(pixel(box, static_cast<int>(place.right - place.left) - 2, 2), RGB(153, 0, 0));
}

TEST_F(RecordingFormTest, TheMeterLightsUpToThePeak) {
  const HWND meter = FindWindowExW(window(), nullptr, L"msctls_progress32", nullptr);
  ASSERT_NE(meter, nullptr);
  form.ProgressBar1.setValue(50);
  shown.settle();
  const RECT place = placeOf(meter);
  const int middle = static_cast<int>(place.bottom - place.top) / 2;
  EXPECT_EQ(pixel(meter, 1, middle), RGB(0, 192, 0));
  EXPECT_EQ(SendMessageW(meter, PBM_GETPOS, 0, 0), 50);
  form.ProgressBar1.setValue(0);
  shown.settle();
  EXPECT_NE(pixel(meter, 1, middle), RGB(0, 192, 0));
}

TEST_F(RecordingFormTest, AWindowThatComesBackToTheFrontGivesTheKeyboardToWhatHadIt) {
  const HWND key = button(form.Label2[2]);
  SetActiveWindow(window());
  SetFocus(key);
  SetActiveWindow(shown.window());
  shown.settle();
  ASSERT_NE(GetFocus(), key);
  SetActiveWindow(window());
  shown.settle();
  EXPECT_EQ(GetFocus(), key);
  form.Label2[2].setEnabled(false);  // it takes no keys: whoever tabs on has to start somewhere
  SetActiveWindow(shown.window());
  SetActiveWindow(window());
  shown.settle();
  EXPECT_NE(GetFocus(), key);
}

int paintsOfMeter = 0;

LRESULT CALLBACK countPaints(HWND window, UINT message, WPARAM first, LPARAM second, UINT_PTR,
                             DWORD_PTR) {
  if (message == WM_PAINT) ++paintsOfMeter;
  return DefSubclassProc(window, message, first, second);
}

TEST_F(RecordingFormTest, TheMeterIsPaintedOnlyWhenALightChanges) {
  const HWND meter = FindWindowExW(window(), nullptr, L"msctls_progress32", nullptr);
  ASSERT_NE(meter, nullptr);
  form.ProgressBar1.setValue(50);
  shown.settle();
  UpdateWindow(meter);
  ASSERT_TRUE(SetWindowSubclass(meter, &countPaints, 1, 0));
  paintsOfMeter = 0;
  form.ProgressBar1.setValue(50.1F);
  shown.settle();
  EXPECT_EQ(paintsOfMeter, 0);
  form.ProgressBar1.setValue(60);
  shown.settle();
  EXPECT_GT(paintsOfMeter, 0);
  RemoveWindowSubclass(meter, &countPaints, 1);
}

TEST_F(RecordingFormTest, StandsBesideTheMainWindowFollowsItAndIsLeftWhereTheUserPutsIt) {
  const HWND owner = shown.window();
  EXPECT_EQ(GetWindow(window(), GW_OWNER), owner);
  SetWindowPos(owner, nullptr, 20, 60, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  form.form.placeBesideOwner();
  EXPECT_EQ(placeOf(window()).top, 60);
  const LONG beside = placeOf(window()).left;
  EXPECT_GT(beside, 20);
  SetWindowPos(window(), nullptr, 5, 5, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  form.form.placeBesideOwner();
  EXPECT_EQ(placeOf(window()).left, 5);
  SetWindowPos(owner, nullptr, 20, 80, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  form.form.placeBesideOwner();
  EXPECT_EQ(placeOf(window()).top, 80);
  EXPECT_EQ(placeOf(window()).left, beside);
}

TEST_F(RecordingFormTest, NothingIsCutOffAndTheWidthStaysWhenTheSizeTakesThePlaceOfAKey) {
  const LONG width = placeOf(window()).right - placeOf(window()).left;
  form.Label7.setVisible(false);
  form.Label3.setVisible(true);
  form.Label3.setCaption("Filesize: 1228.4 MB");
  form.standardCopy.setVisible(true);
  shown.settle();
  EXPECT_EQ(placeOf(window()).right - placeOf(window()).left, width);
  RECT inside;
  GetClientRect(window(), &inside);
  for (HWND child = GetWindow(window(), GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    if (!IsWindowVisible(child)) continue;
    RECT place = placeOf(child);
    MapWindowPoints(nullptr, window(), reinterpret_cast<POINT*>(&place), 2);
    EXPECT_GE(place.left, 0);
    EXPECT_LE(place.right, inside.right);
    EXPECT_LE(place.bottom, inside.bottom);
  }
}

}  // namespace
}  // namespace nerolith::windows_forms
