// The program that ships, started by a test and driven by window messages from outside.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "platform/windows/handles.h"

namespace nerolith::windows_program {

/// The player's own keys of the registry: gone when it is made and when it goes.
class FreshSettings {
 public:
  FreshSettings() { remove(); }
  ~FreshSettings() { remove(); }
  FreshSettings(const FreshSettings&) = delete;
  FreshSettings& operator=(const FreshSettings&) = delete;

  /// `section` is "application\section". Throws std::runtime_error when it cannot be stored.
  void put(const std::wstring& section, const std::wstring& name, DWORD type, const void* bytes,
           std::size_t count) const;
  void put(const std::wstring& section, const std::wstring& name, const std::wstring& text) const;
  /// Empty when there is none.
  std::wstring text(const std::wstring& section, const std::wstring& name) const;

 private:
  static void remove();
};

/// A process of the program with its main window. Ended by force with the object.
class RunningPlayer {
 public:
  /// Starts it with this text behind its name and waits up to 20 s for its window. Throws
  /// std::runtime_error when none comes.
  explicit RunningPlayer(const std::wstring& commandLine = {});
  ~RunningPlayer();
  RunningPlayer(const RunningPlayer&) = delete;
  RunningPlayer& operator=(const RunningPlayer&) = delete;

  HWND window() const { return window_; }
  HANDLE process() const { return process_.get(); }
  /// A child by class, and by name where one is given.
  HWND child(const wchar_t* className, const std::wstring& name = {}) const;
  HWND list() const;
  int songs() const;
  /// Whether a child shows these words within the time.
  bool shows(const std::wstring& words, int milliseconds = 10000) const;
  /// The same for what only begins with these words.
  bool saysSomethingLike(const std::wstring& beginning, int milliseconds = 10000) const {
    return saysSomethingLike(window_, beginning, milliseconds);
  }
  /// In a further window of the player.
  bool saysSomethingLike(HWND window, const std::wstring& beginning, int milliseconds) const;
  /// The pop-up menu on the screen; nothing when there is none within the time.
  HWND menu(int milliseconds = 10000) const;
  bool menuGone(int milliseconds = 10000) const;
  /// Another top-level window of the process with a title: a message box.
  HWND message(int milliseconds = 10000) const;

  /// A dialog of that title.
  HWND dialog(const std::wstring& title, int milliseconds = 10000) const;
  /// The words of a message box.
  std::wstring words(HWND box) const;
  /// Types a path into the file dialog of that title and chooses it; false when the dialog does not
  /// come or does not go.
  bool chooseFile(const std::wstring& title, const std::wstring& path) const;
  /// A further window of the player, by its title.
  HWND window(const std::wstring& title, int milliseconds = 10000) const;

  void press(HWND button) const;  // as a screen reader does
  void doubleClickRow(int row) const;
  void key(HWND target, WPARAM code) const;
  void altKey(char letter) const;
  /// Closes the window as its frame does; the exit code, 9999 when it does not end in ten seconds.
  DWORD close();

 private:
  windows::SystemHandle process_;
  DWORD id_ = 0;
  HWND window_ = nullptr;
};

/// Asks every 20 ms until it is true or the time is over.
template <typename Condition>
bool within(int milliseconds, Condition holds) {
  for (const ULONGLONG until = GetTickCount64() + static_cast<ULONGLONG>(milliseconds);;) {
    if (holds()) return true;
    if (GetTickCount64() > until) return false;
    Sleep(20);
  }
}

}  // namespace nerolith::windows_program
