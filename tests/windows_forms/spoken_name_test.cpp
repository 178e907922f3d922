#include "platform/windows/forms/spoken_name.h"

#include <gtest/gtest.h>
#include <set>
#include <vector>

#include "forms/editor_form.h"
#include "forms/form3.h"
#include "forms/recording_form.h"
#include "forms/settings_form.h"
#include "windows_forms/shown_form.h"
#include "windows_forms/spoken_service.h"

namespace nerolith::windows_forms {
namespace {

TEST(SpokenName, AFigureIsCalledByItsNameAndWhatItShows) {
  EXPECT_EQ(spokenWords(L"Time", L"03:12"), L"Time 03:12");
  EXPECT_EQ(spokenWords(L"Folder", L""), L"Folder");
  EXPECT_EQ(spokenWords(L"", L"selected"), L"selected");
  EXPECT_EQ(spokenWords(L"", L""), L"");
}

TEST(SpokenName, MayBeToldAndTakenBackWhereNobodyListens) {
  const HWND window =
      CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 1, 1, HWND_MESSAGE, nullptr, nullptr, nullptr);
  ASSERT_TRUE(window);
  {
    SpokenName name;
    name.tell(window, L"Time 00:01");
    name.tell(window, L"Time 00:02");
    name.tell(nullptr, L"nothing");
  }
  DestroyWindow(window);
  SpokenName gone;
  gone.tell(window, L"a window that is no more");
}

std::wstring textOf(HWND window) {
  wchar_t text[512] = L"";
  GetWindowTextW(window, text, 512);
  return text;
}

std::vector<HWND> shownChildren(HWND window) {
  std::vector<HWND> children;
  EnumChildWindows(
      window,
      [](HWND child, LPARAM found) -> BOOL {
        if (IsWindowVisible(child)) reinterpret_cast<std::vector<HWND>*>(found)->push_back(child);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&children));
  return children;
}

/// What a screen reader says of each control that is shown, and which of them it has no words for.
struct Reading {
  std::set<std::wstring> names;
  std::string nameless;
};

Reading readingOf(HWND window, const SpokenService& service) {
  Reading reading;
  for (const HWND child : shownChildren(window)) {
    wchar_t kind[32] = L"";
    GetClassNameW(child, kind, 32);
    const std::wstring told = service.name(child);
    const std::wstring name = told.empty() ? textOf(child) : told;
    reading.names.insert(name);
    // A line that shows nothing is nothing to be read; the list's header is hidden behind no name.
    const bool mute = lstrcmpiW(kind, L"STATIC") == 0 || lstrcmpiW(kind, L"SysHeader32") == 0;
    if (name.empty() && !mute) reading.nameless += utf8Of(kind) + " ";
  }
  return reading;
}

struct SpokenForms : testing::Test {
  SpokenService service;
  ShownForm shown;
  HWND showBeside(controls::Form& form) {
    form.setOwner(shown.form.form);
    shown.host.add(form);
    form.setVisible(true);
    shown.settle();
    return shown.host.windowOf(form)->handle();
  }
};

TEST_F(SpokenForms, EveryControlOfTheMainWindowHasItsName) {
  const Reading reading = readingOf(shown.window(), service);
  EXPECT_EQ(reading.nameless, "");
  for (const wchar_t* name :
       {L"Time 00:00", L"Select count 0", L"List count 0", L"Total selected playtime 00:00",
        L"Songs", L"Position", L"Drive", L"Folder", L"Level of deck A", L"Level of deck B",
        L"Play &Next", L"&Stop", L"Close", L"Hide", L"Random", L"loop"})
    EXPECT_TRUE(reading.names.contains(name)) << utf8Of(name);
}

TEST_F(SpokenForms, EveryControlOfTheOtherWindowsHasItsName) {
  forms::SettingsForm settings;
  forms::RecordingForm recording;
  forms::EditorForm editor;
  forms::Form3 tray;
  for (controls::Form* form : {&settings.form, &recording.form, &editor.form_4, &tray.form}) {
    const Reading reading = readingOf(showBeside(*form), service);
    EXPECT_EQ(reading.nameless, "") << form->caption();
  }
  const Reading limits = readingOf(shown.host.windowOf(recording.form)->handle(), service);
  for (const wchar_t* name : {L"Peak indicator green", L"Peak level", L"Stop recording at MB"})
    EXPECT_TRUE(limits.names.contains(name)) << utf8Of(name);
  const Reading rules = readingOf(shown.host.windowOf(settings.form)->handle(), service);
  EXPECT_TRUE(rules.names.contains(L"Mix length in seconds"));
  for (controls::Form* form : {&settings.form, &recording.form, &editor.form_4, &tray.form})
    shown.host.remove(*form);
}

TEST_F(SpokenForms, ANoticeSaysWhatItIsAbout) {
  forms::RecordingForm recording;
  forms::EditorForm editor;
  const HWND section = showBeside(recording.form);
  const HWND list = showBeside(editor.form_4);
  recording.notice.setCaption("The disk is full");
  recording.outcome.setCaption("Recorded 1.4 MB");
  editor.notice.setCaption("The disk is full");
  const Reading recorded = readingOf(section, service);
  const Reading edited = readingOf(list, service);
  EXPECT_TRUE(recorded.names.contains(L"Trouble with the recording The disk is full"));
  EXPECT_TRUE(recorded.names.contains(L"Outcome of the recording Recorded 1.4 MB"));
  EXPECT_TRUE(edited.names.contains(L"Trouble with the playlist The disk is full"));
  EXPECT_TRUE(edited.names.contains(L"Line count 0"));
  shown.host.remove(editor.form_4);
  shown.host.remove(recording.form);
}

TEST_F(SpokenForms, AFigureThatChangesIsToldAnewAndALampSaysItsState) {
  const HWND stop = shown.child(L"BUTTON", L"&Stop");
  EXPECT_EQ(service.description(stop), L"off");
  shown.form.Label10[3].setBackColour(controls::kRed);
  EXPECT_EQ(service.description(stop), L"on");
  shown.form.Label10[3].setBackColour(controls::kYellow);
  EXPECT_EQ(service.description(stop), L"waiting");
  shown.form.Label1.setCaption("03:12");
  EXPECT_TRUE(readingOf(shown.window(), service).names.contains(L"Time 03:12"));
}

TEST(SpokenNames, AreTakenBackWithTheirWindows) {
  SpokenService service;
  {
    const ShownForm shown;
    EXPECT_TRUE(service.tellsAnything());
  }
  EXPECT_FALSE(service.tellsAnything());
}

}  // namespace
}  // namespace nerolith::windows_forms
