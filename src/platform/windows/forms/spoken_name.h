// The name that a screen reader says for a window, where it is not the window's text.
#pragma once

#include <windows.h>

#include <string>

namespace nerolith::windows_forms {

/// What a figure or a line is called, with what it shows: "Select count 3". What has no name of its
/// own is called by what it shows.
std::wstring spokenWords(const std::wstring& name, const std::wstring& shown);

/// One name, told to the system for one window and taken back at the end. Belongs to the thread
/// that made the window. Where the system has no service for this (Wine 8), the window is called by
/// its text, and nothing fails.
class SpokenName {
 public:
  SpokenName() = default;
  ~SpokenName();
  SpokenName(const SpokenName&) = delete;
  SpokenName& operator=(const SpokenName&) = delete;

  /// Costs nothing when the words are the same as before.
  void tell(HWND window, const std::wstring& words);

 private:
  HWND window_ = nullptr;
  std::wstring words_;
};

}  // namespace nerolith::windows_forms
