#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include "windows_forms/shown_form.h"

namespace nerolith::windows_forms {
namespace {

// As if the window came onto a display of another density.
void setDpi(ShownForm& shown, int dpi) {
  RECT place{20, 20, 20 + 820 * dpi / 96, 20 + 660 * dpi / 96};
  SendMessageW(shown.window(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi),
               reinterpret_cast<LPARAM>(&place));
  shown.settle();
}

RECT placeIn(HWND parent, HWND child) {
  RECT place;
  GetWindowRect(child, &place);
  MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&place), 2);
  return place;
}

std::vector<HWND> visibleChildren(HWND parent) {
  std::vector<HWND> found;
  for (HWND child = GetWindow(parent, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
    if (IsWindowVisible(child)) found.push_back(child);
  return found;
}

// The slim scroll bar lies over the right edge of the list.
bool holdsItsOwnBar(HWND list, HWND bar) {
  wchar_t className[32] = L"";
  GetClassNameW(list, className, 32);
  const RECT around = placeIn(GetParent(list), list), inside = placeIn(GetParent(list), bar);
  return lstrcmpiW(className, WC_LISTVIEWW) == 0 && inside.left > around.left &&
         inside.right <= around.right + 1 &&
         inside.right - inside.left < (around.right - around.left) / 20;
}

long highOf(const RECT& place) { return place.bottom - place.top; }

struct DotsPerInch : testing::TestWithParam<int> {
  ShownForm shown;
};

TEST_P(DotsPerInch, NothingLeavesTheWindowAndNothingOverlaps) {
  setDpi(shown, GetParam());
  RECT room;
  GetClientRect(shown.window(), &room);
  const auto children = visibleChildren(shown.window());
  ASSERT_GT(children.size(), 20u);
  for (const HWND child : children) {
    const RECT place = placeIn(shown.window(), child);
    if (place.left == place.right || place.top == place.bottom) continue;  // has nothing to show
    EXPECT_TRUE(place.left >= 0 && place.top >= 0 && place.right <= room.right &&
                place.bottom <= room.bottom)
        << place.left << "," << place.top << " to " << place.right << "," << place.bottom;
    for (const HWND other : children) {
      if (holdsItsOwnBar(child, other) || holdsItsOwnBar(other, child)) continue;
      const RECT there = placeIn(shown.window(), other);
      RECT both;
      if (other != child && IntersectRect(&both, &place, &there))
        ADD_FAILURE() << "two controls overlap by " << both.right - both.left << " x "
                      << highOf(both) << " at " << both.left << "," << both.top;
    }
  }
}

TEST_P(DotsPerInch, ControlsGrowWithTheDisplay) {
  const HWND face = shown.child(L"BUTTON", L"&Stop");
  const HWND slider = shown.child(TRACKBAR_CLASSW);
  setDpi(shown, 96);
  const long faceBefore = highOf(placeIn(shown.window(), face));
  const long sliderBefore = highOf(placeIn(shown.window(), slider));
  RECT rowBefore{}, row{};
  ListView_GetItemRect(shown.child(WC_LISTVIEWW), 0, &rowBefore, LVIR_BOUNDS);
  setDpi(shown, GetParam());
  const double grown = GetParam() / 96.0;
  EXPECT_NEAR(static_cast<double>(highOf(placeIn(shown.window(), face))),
              static_cast<double>(faceBefore) * grown, 2);
  EXPECT_NEAR(static_cast<double>(highOf(placeIn(shown.window(), slider))),
              static_cast<double>(sliderBefore) * grown, 2);
  ListView_GetItemRect(shown.child(WC_LISTVIEWW), 0, &row, LVIR_BOUNDS);
  EXPECT_NEAR(static_cast<double>(highOf(row)), static_cast<double>(highOf(rowBefore)) * grown, 2);
}

INSTANTIATE_TEST_SUITE_P(Displays, DotsPerInch, testing::Values(96, 120, 144));

}  // namespace
}  // namespace nerolith::windows_forms
