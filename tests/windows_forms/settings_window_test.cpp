// The settings window itself, with the messages that keys and mouse cause.
#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>
#include <oleacc.h>

#include "platform/simulated/simulated_machine.h"
#include "settings/settings_window.h"
#include "windows_forms/shown_form.h"

namespace nerolith::windows_forms {
namespace {

class SettingsWindowTest : public testing::Test {
 protected:
  SettingsWindowTest() {
    live.fadeLength = 5;
    live.keyTexts = {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"};
    form.form.setOwner(shown.form.form);
    shown.host.add(form.form);
    form2aan.userClick();
    SetForegroundWindow(window());
    form.Text3.setFocus();
    shown.settle();
  }
  ~SettingsWindowTest() override { shown.host.remove(form.form); }

  HWND window() const { return shown.host.windowOf(form.form)->handle(); }
  HWND button(const std::wstring& words) const { return childOf(window(), L"BUTTON", words); }

  /// The edit fields in the order of the windows, which is that of the tab key: Text3, Text4,
  /// Text1, Text2, Text6 to Text15.
  std::vector<HWND> edits() const {
    std::vector<HWND> found;
    EnumChildWindows(
        window(),
        [](HWND child, LPARAM data) -> BOOL {
          wchar_t name[16] = L"";
          GetClassNameW(child, name, 16);
          if (lstrcmpiW(name, L"EDIT") == 0)
            reinterpret_cast<std::vector<HWND>*>(data)->push_back(child);
          return TRUE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
  }
  HWND edit(std::size_t place) const { return edits().at(place); }

  /// Replaces what stands in the field, sign by sign.
  void type(HWND into, const std::wstring& text) {
    SetFocus(into);
    SendMessageW(into, EM_SETSEL, 0, -1);
    for (const wchar_t sign : text) PostMessageW(into, WM_CHAR, sign, 1);
    shown.settle();
  }
  void character(HWND into, wchar_t sign) {
    PostMessageW(into, WM_CHAR, sign, 1);
    shown.settle();
  }
  static std::wstring textOf(HWND window) {
    wchar_t text[64] = L"";
    GetWindowTextW(window, text, 64);
    return text;
  }
  static HWND childOf(HWND parent, const wchar_t* className, const std::wstring& name) {
    return FindWindowExW(parent, nullptr, className, name.c_str());
  }
  std::string stored(const char* application, const char* key) const {
    return machine.settings.stored(application, "Setting", key).value_or("(absent)");
  }

  platform::simulated::SimulatedMachine machine;
  settings::LiveSettings live;
  settings::StoredSettings store{machine.settings, live};
  controls::MenuItem form2aan{"Settings"};
  ShownForm shown;
  forms::SettingsForm form;
  settings::SettingsWindow settings{form, form2aan, live, store, [] { return "C:\\Music\\"; }};
};

constexpr std::size_t kLength = 0, kLead = 1, kAfter = 2, kF4 = 7;

TEST_F(SettingsWindowTest, ItOpensOverItsOwnerWithTheKeyboardInTheFirstBox) {
  EXPECT_EQ(textOf(window()), L"Settings");
  EXPECT_EQ(GetWindow(window(), GW_OWNER), shown.window());
  EXPECT_EQ(edits().size(), 14U);
  EXPECT_EQ(GetFocus(), edit(kLength));
  RECT place, around;
  GetWindowRect(window(), &place);
  GetWindowRect(shown.window(), &around);
  EXPECT_NEAR(place.left + place.right, around.left + around.right, 4);
}

TEST_F(SettingsWindowTest, TabVisitsEveryControlAsItIsReadAndMarksWhatStandsThere) {
  std::vector<HWND> order = edits();
  order.insert(order.begin() + 2, button(L"Enable"));
  order.push_back(button(L"Enable -  Mark file for deletion."));
  order.push_back(button(L"Save Settings"));
  for (const HWND stop : order) {
    EXPECT_EQ(GetFocus(), stop) << utf8Of(textOf(stop));
    shown.key(GetFocus(), VK_TAB);
  }
  EXPECT_EQ(GetFocus(), edit(kLength));
  DWORD from = 9, to = 9;
  SendMessageW(edit(kLength), EM_GETSEL, reinterpret_cast<WPARAM>(&from),
               reinterpret_cast<LPARAM>(&to));
  EXPECT_EQ(from, 0U);
  EXPECT_EQ(to, 1U);
}

TEST_F(SettingsWindowTest, WhatIsTypedIsLive) {
  type(edit(kAfter), L"12");
  type(edit(kF4), L"Blue");
  EXPECT_EQ(live.recentAfter, 12);
  EXPECT_EQ(live.keyTexts[3], "Blue");
}

TEST_F(SettingsWindowTest, EnterValidatesAndTheKeyboardStays) {
  type(edit(kLength), L"12");
  EXPECT_EQ(live.fadeLength, 5);
  character(edit(kLength), VK_RETURN);
  EXPECT_EQ(textOf(edit(kLength)), L"10");
  EXPECT_EQ(live.fadeLength, 10);
  EXPECT_EQ(GetFocus(), edit(kLength));
}

TEST_F(SettingsWindowTest, LeavingByTabValidates) {
  type(edit(kLead), L"70");
  shown.key(edit(kLead), VK_TAB);
  EXPECT_EQ(textOf(edit(kLead)), L"5");
  EXPECT_EQ(live.mixLead, 5);
}

TEST_F(SettingsWindowTest, LeavingForTheMainWindowValidates) {
  type(edit(kLength), L"7 seconds");
  SetFocus(shown.child(WC_LISTVIEWW));
  shown.settle();
  EXPECT_EQ(live.fadeLength, 7);
  SetForegroundWindow(window());
  shown.settle();
  EXPECT_EQ(textOf(edit(kLength)), L"7");
}

TEST_F(SettingsWindowTest, AClickOnSaveTakesTheTypedMixOverFirst) {
  type(edit(kLead), L"20");
  shown.click(button(L"Save Settings"), 10, 10);
  EXPECT_EQ(stored("Microsoft Visual Basic AddIns", "fadem"), "20");
  EXPECT_FALSE(IsWindowVisible(window()));
}

TEST_F(SettingsWindowTest, EnterOnTheButtonSaves) {
  SetFocus(button(L"Save Settings"));
  shown.key(button(L"Save Settings"), VK_RETURN);
  EXPECT_EQ(stored("Nerolith", "key9"), "9");
  EXPECT_FALSE(IsWindowVisible(window()));
}

TEST_F(SettingsWindowTest, EscClosesDropsTheHalfTypedMixAndStoresNothing) {
  type(edit(kLength), L"9");
  shown.key(edit(kLength), VK_ESCAPE);
  EXPECT_FALSE(IsWindowVisible(window()));
  EXPECT_EQ(live.fadeLength, 5);
  EXPECT_EQ(machine.settings.size(), 0U);
}

TEST_F(SettingsWindowTest, TheDeletionSwitchIsStoredAtOnceByMouse) {
  const HWND marking = button(L"Enable -  Mark file for deletion.");
  shown.click(marking, 8, 8);
  EXPECT_EQ(stored("Nerolith", "mark_for_deletion"), "True");
  EXPECT_EQ(SendMessageW(marking, BM_GETCHECK, 0, 0), BST_CHECKED);
  EXPECT_EQ(GetFocus(), marking);
  shown.click(marking, 8, 8);
  EXPECT_EQ(stored("Nerolith", "mark_for_deletion"), "False");
  EXPECT_EQ(machine.settings.size(), 1U);
}

std::wstring spokenName(HWND window) {
  IAccessible* object = nullptr;
  if (FAILED(AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible,
                                        reinterpret_cast<void**>(&object))))
    return L"(none)";
  VARIANT self{};
  self.vt = VT_I4;
  BSTR name = nullptr;
  object->get_accName(self, &name);
  object->Release();
  const std::wstring text = name ? name : L"";
  SysFreeString(name);
  return text;
}

TEST_F(SettingsWindowTest, AScreenReaderHearsTheWordsBesideEachBox) {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  EXPECT_EQ(utf8Of(spokenName(edit(kLength))), "Mix length in seconds");
  EXPECT_EQ(utf8Of(spokenName(edit(kLead))), "Seconds before end to start Mix");
  EXPECT_EQ(utf8Of(spokenName(edit(kAfter))).substr(0, 5), "After");
  EXPECT_EQ(utf8Of(spokenName(edit(kF4))), "Key 'F4");
  EXPECT_EQ(utf8Of(spokenName(button(L"Enable"))), "Enable");
  CoUninitialize();
}

}  // namespace
}  // namespace nerolith::windows_forms
