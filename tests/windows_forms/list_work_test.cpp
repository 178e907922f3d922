// The whole player in its real windows with real files: the menu, what it does to the list, the
// question, and what is gone after the close.
#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "app/program.h"
#include "platform/simulated/simulated_machine.h"
#include "platform/windows/com_apartment.h"
#include "platform/windows/forms/form_window.h"
#include "platform/windows/forms/wide_text.h"
#include "platform/windows/forms/win32_event_queue.h"
#include "platform/windows/forms/win32_window_host.h"
#include "platform/windows/windows_dialogs.h"
#include "platform/windows/windows_file_system.h"
#include "windows_forms/held_key.h"
#include "windows_forms/window_picture.h"
#include "windows_system/dialog_user.h"
#include "windows_system/scratch_folder.h"

namespace nerolith::windows_forms {
namespace {

using namespace std::chrono_literals;

std::vector<std::string> captionsOf(HMENU menu) {
  std::vector<std::string> captions;
  for (int i = 0; i < GetMenuItemCount(menu); ++i) {
    wchar_t text[128] = L"";
    GetMenuStringW(menu, static_cast<UINT>(i), text, 128, MF_BYPOSITION);
    captions.push_back(utf8Of(text));
  }
  return captions;
}

/// The pop-up menus of this process that can be seen, the innermost first.
std::vector<HWND> shownMenus() { return windows::shownWindows(L"#32768"); }

HMENU menuIn(HWND window) {
  constexpr UINT kGetMenu = 0x01E1;  // MN_GETHMENU
  return reinterpret_cast<HMENU>(SendMessageW(window, kGetMenu, 0, 0));
}

/// A hand that uses the menu from a thread of its own: the player waits in the menu meanwhile.
class MenuHand {
 public:
  explicit MenuHand(HWND owner) : owner_(owner) {}
  ~MenuHand() { finish(); }

  /// Goes through the captions by the arrow keys, a submenu first, and presses Enter; without
  /// captions it only looks, and leaves by Esc.
  void choose(std::vector<std::string> path) {
    finish();
    thread_ = std::thread([this, path] { walk(path); });
  }
  void finish() {
    if (thread_.joinable()) thread_.join();
  }
  std::vector<std::string> outer, inner;  // what was seen
  std::function<void()> beforeChoosing;   // on the hand's thread, with all menus open

 private:
  void press(WPARAM key) const {
    PostMessageW(owner_, WM_KEYDOWN, key, 1);
    Sleep(60);
  }
  static HWND awaitMenu(std::size_t count) {
    for (int i = 0; i < 500; ++i, Sleep(10))
      if (const auto menus = shownMenus(); menus.size() >= count) return menus.front();
    return nullptr;
  }
  void walk(const std::vector<std::string>& path) {
    const HWND top = awaitMenu(1);
    if (!top) return;
    outer = captionsOf(menuIn(top));
    for (std::size_t depth = 0; depth < path.size(); ++depth) {
      const HMENU menu = menuIn(shownMenus().front());
      const auto captions = captionsOf(menu);
      if (depth > 0) inner = captions;
      const auto found = std::find(captions.begin(), captions.end(), path[depth]);
      const auto steps = found - captions.begin() + (depth == 0 ? 1 : 0);
      for (auto i = 0 * steps; i < steps; ++i) press(VK_DOWN);
      const bool last = depth + 1 == path.size();
      if (last && beforeChoosing) beforeChoosing();
      press(last ? VK_RETURN : VK_RIGHT);
      if (!last) awaitMenu(depth + 2);
    }
    while (!shownMenus().empty()) press(VK_ESCAPE);
  }

  HWND owner_;
  std::thread thread_;
};

class PlayerOnScreen : public testing::Test {
 protected:
  PlayerOnScreen() {
    for (const char* name : {"amber", "blue", "copper", "dawn", "ebb"})
      scratch.addFile(std::string(name) + ".mp3", "no sound");
    files.setCurrentDirectory(scratch.path());
    const std::string display = "Microsoft Visual Basic AddIns";
    machine.settings.set(display, "Setting", "color", "10");
    machine.settings.set(display, "Setting", "setting", "1");
    machine.clock.setReadingTime(1ms);
    const platform::Machine m = machine.doors();
    program = std::make_unique<app::Program>(platform::Machine{
        m.graphs, files, m.settings, dialogs, m.pictures, m.clock, events, host, m.bytes,
        m.encoding, m.capture, m.tone, m.output, m.media, m.power, m.icon});
    program->start("");
    // What the start leaves to events of its own would else come between the keys of a test.
    bool begun = false;
    events.post([&begun] { begun = true; });
    while (!begun) {
      events.runWaitingEvents();
      Sleep(1);
    }
    SetForegroundWindow(window());
    form().List1.setFocus();
    hand = std::make_unique<MenuHand>(window());
  }

  forms::MainForm& form() { return program->mainForm(); }
  HWND window() { return host.windowOf(form().form)->handle(); }
  HWND list() { return FindWindowExW(window(), nullptr, WC_LISTVIEWW, nullptr); }
  void key(WPARAM code) {
    PostMessageW(list(), WM_KEYDOWN, code, 1);
    events.runWaitingEvents();
  }
  void choose(std::vector<std::string> path) {
    hand->choose(std::move(path));
    key(VK_APPS);
    events.runWaitingEvents();
    hand->finish();
  }
  void select(std::vector<int> positions) {
    form().List1.deselectAll();
    for (const int position : positions) form().List1.setSelected(position, true);
  }
  std::string selected() {
    std::string letters;
    for (int i = 0; i < form().List1.count(); ++i)
      if (form().List1.selected(i)) letters += form().List1.item(i).front();
    return letters;
  }
  /// The program would end now; the thread lives on, and must not find the end in its queue later.
  void closePlayer() {
    form().form.close();
    MSG message;
    while (PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) continue;
  }
  bool exists(const std::string& name) { return files.fileExists(scratch.path(name)); }

  windows::ComApartment apartment;
  windows::ScratchFolder scratch;
  platform::simulated::SimulatedMachine machine;
  windows::WindowsFileSystem files;
  windows::WindowsDialogs dialogs{[] { return nullptr; }, [this] { return scratch.path(); }};
  windows::DialogUser user;
  Win32EventQueue events;
  Win32WindowHost host{events};
  std::unique_ptr<app::Program> program;
  std::unique_ptr<MenuHand> hand;
};

const std::string kFunctions = "Selection functions";

TEST_F(PlayerOnScreen, TheMenuKeyShowsTheMenuAndItsCaptionsToTheLetter) {
  choose({kFunctions, "Select unplayed files"});
  ASSERT_FALSE(hand->outer.empty());
  EXPECT_EQ(hand->outer.front(), kFunctions);
  EXPECT_EQ(hand->outer.back(), "Settings");
  EXPECT_EQ(hand->inner,
            (std::vector<std::string>{
                "Select unplayed files", "Tag selected as played", "Tag selected as unplayed",
                "Remove selected from list    (Del)", "Total selected playtime"}));
  EXPECT_EQ(selected(), "abcde");
}

TEST_F(PlayerOnScreen, ThePlaylistActionsStandToTheLetterAndWithoutAPlaylistUpdateSaysSo) {
  const std::vector<std::string> captions = {
      "Add file(s) to last opened playlist  (alt-Q)",
      "Import Playlistfiles                         (alt-I)",
      "Add selected file(s) to playlist       (alt-A)",
      "Clear playlist file                            (alt-C)",
      "Update Playlistfile                         (alt-U)"};
  std::wstring said;
  user.onceShown([&said](HWND dialog) {
    wchar_t text[64] = L"";
    GetDlgItemTextW(dialog, 0xFFFF, text, 64);
    said = text;
    return !said.empty() && PostMessageW(dialog, WM_COMMAND, IDOK, 0);
  });
  hand->beforeChoosing = [this] { EXPECT_TRUE(WindowPicture(window()).save("menu")); };
  choose({"Playlist actions", captions.back()});
  user.finish();
  EXPECT_EQ(hand->inner, captions);
  EXPECT_EQ(utf8Of(said), "No playlistfile opend");
}

TEST_F(PlayerOnScreen, TheRightMouseButtonAndOptionsShowItToo) {
  hand->choose({});
  PostMessageW(list(), WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(60, 10));
  PostMessageW(list(), WM_RBUTTONUP, 0, MAKELPARAM(60, 10));
  events.runWaitingEvents();
  hand->finish();
  EXPECT_FALSE(std::exchange(hand->outer, {}).empty());
  hand->choose({});
  PostMessageW(list(), WM_SYSCHAR, 'o', 1 << 29);
  events.runWaitingEvents();
  hand->finish();
  EXPECT_FALSE(std::exchange(hand->outer, {}).empty());
  hand->choose({});
  form().Label8[5].userClick();
  events.runWaitingEvents();
  hand->finish();
  EXPECT_FALSE(hand->outer.empty());
}

TEST_F(PlayerOnScreen, TheSelectionFunctionsWorkThroughTheMenu) {
  select({1, 3});
  choose({kFunctions, "Tag selected as played"});
  choose({kFunctions, "Select unplayed files"});
  EXPECT_EQ(selected(), "ace");
  select({3});
  choose({kFunctions, "Tag selected as unplayed"});
  choose({kFunctions, "Select unplayed files"});
  EXPECT_EQ(selected(), "acde");
  select({1, 2});
  choose({kFunctions, "Remove selected from list    (Del)"});
  EXPECT_EQ(form().List1.items(), (std::vector<std::string>{"amber.mp3", "dawn.mp3", "ebb.mp3"}));
}

TEST_F(PlayerOnScreen, SettingsOpensItsWindow) {
  choose({"Settings"});
  const HWND settings = host.windowOf(program->settingsForm().form)->handle();
  EXPECT_TRUE(IsWindowVisible(settings));
  EXPECT_TRUE(WindowPicture(settings).save("settings"));
}

// The decks' time is not the window's: each of the window's ticks lets some of it go by.
TEST_F(PlayerOnScreen, ABarShowsHowFarACountIs) {
  for (const std::string& song : form().List1.items()) machine.files.addFile(scratch.path(song));
  machine.decks.setReadingTime(100ms);
  const auto time = form().Timer1.tick.subscribe([this] { machine.advance(100ms); });
  int pictures = 0;
  const auto seen = form().playtimeDone.changed.subscribe([&] {
    if (!form().playtimeDone.visible() || form().playtimeDone.caption() != "3 of 5") return;
    EXPECT_EQ(form().Label4.caption(), "Counting");
    ++pictures;
  });
  bool drawn = false;
  const auto looked = form().Timer1.tick.subscribe([&] {
    if (drawn || form().playtimeDone.caption() != "3 of 5") return;
    const HWND bar = FindWindowExW(window(), nullptr, PROGRESS_CLASSW, L"Songs counted");
    UpdateWindow(bar);
    const WindowPicture picture(bar);
    const int middle = picture.height() / 2;
    EXPECT_NE(picture.pixel(picture.width() / 2, middle),
              picture.pixel(picture.width() * 4 / 5, middle));
    drawn = WindowPicture(window()).save("playtime-count");
  });
  for (int i = 0; i < 5; ++i) form().List1.setSelected(i, true);
  choose({kFunctions, "Total selected playtime"});
  EXPECT_GT(pictures, 0);
  EXPECT_TRUE(drawn);
  EXPECT_EQ(form().Label4.caption(), "15:10");
}

TEST_F(PlayerOnScreen, EnterAnswersTheQuestionWithNoAndNothingIsDeleted) {
  machine.settings.set("Nerolith", "Setting", "mark_for_deletion", "True");
  select({0, 4});
  int preset = 0;
  user.onceShown([&preset](HWND dialog) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(dialog, nullptr), &info);
    if (!GetDlgItem(dialog, IDYES) || !info.hwndFocus) return false;
    preset = GetDlgCtrlID(info.hwndFocus);
    return PostMessageW(info.hwndFocus, WM_KEYDOWN, VK_RETURN, 1) != 0;
  });
  key(VK_DELETE);
  user.finish();
  EXPECT_EQ(preset, IDNO);
  EXPECT_EQ(form().List1.count(), 3);
  closePlayer();
  EXPECT_TRUE(exists("amber.mp3"));
}

TEST_F(PlayerOnScreen, YesDeletesReadOnlyFilesTooAtTheCloseAndNotBefore) {
  machine.settings.set("Nerolith", "Setting", "mark_for_deletion", "True");
  SetFileAttributesW(wideOf(scratch.path("ebb.mp3")).c_str(),
                     FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN);
  select({0, 4});
  user.presses(IDYES);
  key(VK_DELETE);
  user.finish();
  EXPECT_TRUE(exists("amber.mp3"));
  closePlayer();
  EXPECT_FALSE(exists("amber.mp3"));
  EXPECT_FALSE(exists("ebb.mp3"));
  EXPECT_TRUE(exists("blue.mp3"));
}

TEST_F(PlayerOnScreen, AFunctionKeySelectsInRandomAndShiftAdds) {
  form().Option3.setValue(true);
  program->settingsForm().Text6.setText("b");
  program->settingsForm().Text7.setText("D");
  program->settingsForm().Text15.setText("e");
  form().List1.deselectAll();
  key(VK_F1);
  EXPECT_EQ(selected(), "b");
  {
    const HeldKey shift(VK_SHIFT);
    key(VK_F2);
  }
  EXPECT_EQ(selected(), "bd");
  key(VK_F2);
  EXPECT_EQ(selected(), "d");
  PostMessageW(list(), WM_SYSKEYDOWN, VK_F10, 1);  // with or without Alt it comes as a system's key
  events.runWaitingEvents();
  EXPECT_EQ(selected(), "e");
}

}  // namespace
}  // namespace nerolith::windows_forms
