// The main form in a real window, with the messages that a user's hand would cause.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/signal.h"
#include "forms/main_form.h"
#include "platform/windows/forms/form_window.h"
#include "platform/windows/forms/wide_text.h"
#include "platform/windows/forms/win32_event_queue.h"
#include "platform/windows/forms/win32_window_host.h"

namespace nerolith::windows_forms {

/// Shown from the beginning; the windows are found as a screen reader finds them, by class and
/// name.
class ShownForm {
 public:
  ShownForm() : host(events) {
    for (int i = 0; i < 20; ++i)
      form.List1.addItem("Song " + std::string(1, static_cast<char>('a' + i)) + ".mp3");
    host.add(form.form);
    form.form.setVisible(true);
    settle();
  }
  ~ShownForm() { host.remove(form.form); }

  void settle() { events.runWaitingEvents(); }
  HWND window() const { return host.windowOf(form.form)->handle(); }

  HWND child(const wchar_t* className, const std::wstring& name = {}) const {
    Sought sought{className, name, nullptr};
    EnumChildWindows(window(), &look, reinterpret_cast<LPARAM>(&sought));
    return sought.found;
  }

  void click(HWND target, int x, int y, WPARAM held = 0) {
    PostMessageW(target, WM_LBUTTONDOWN, MK_LBUTTON | held, MAKELPARAM(x, y));
    PostMessageW(target, WM_LBUTTONUP, held, MAKELPARAM(x, y));
    settle();
  }
  void key(HWND target, WPARAM code) {
    PostMessageW(target, WM_KEYDOWN, code, 1);
    settle();
  }

  forms::MainForm form;
  Win32EventQueue events;
  Win32WindowHost host;

 private:
  struct Sought {
    std::wstring className;
    std::wstring name;
    HWND found;
  };

  static std::wstring textOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
    GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
    return text;
  }

  static BOOL CALLBACK look(HWND window, LPARAM data) {
    auto& sought = *reinterpret_cast<Sought*>(data);
    wchar_t className[64] = L"";
    GetClassNameW(window, className, 64);
    if (lstrcmpiW(className, sought.className.c_str()) != 0) return TRUE;
    if (!sought.name.empty() && textOf(window) != sought.name) return TRUE;
    sought.found = window;
    return FALSE;
  }
};

/// The shown form, and what was heard of its signals in their order.
struct ShownFormTest : testing::Test {
  ShownForm shown;
  forms::MainForm& form = shown.form;
  std::string heard;
  std::vector<base::Subscription> subscriptions;

  template <typename Signal>
  void hear(Signal& signal, const std::string& word) {
    subscriptions.push_back(signal.subscribe([this, word](auto&&...) { heard += word + " "; }));
  }
};

}  // namespace nerolith::windows_forms
