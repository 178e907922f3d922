// The words that a screen reader says for a window, where they are not the window's text.
#pragma once

#include <windows.h>

#include <string>

struct IAccPropServices;

namespace nerolith::windows_forms {

/// What a figure or a line is called, with what it shows: "Select count 3". What has no name of its
/// own is called by what it shows.
std::wstring spokenWords(const std::wstring& name, const std::wstring& shown);

/// What the words are: the window's name, or what is said of it further.
enum class Spoken { Name, Description };

/// One name or description, told to the system for one window and taken back at the end. Belongs to
/// the thread that made the window, which has entered its COM apartment. Where the system has no
/// service for this (Wine 8), the window is called by its text, and nothing fails.
class SpokenName {
 public:
  explicit SpokenName(Spoken kind = Spoken::Name) : kind_(kind) {}
  ~SpokenName();
  SpokenName(const SpokenName&) = delete;
  SpokenName& operator=(const SpokenName&) = delete;

  /// Costs nothing when the words are the same as before.
  void tell(HWND window, const std::wstring& words);

 private:
  void askForService();

  Spoken kind_;
  HWND window_ = nullptr;
  std::wstring words_;
  IAccPropServices* service_ = nullptr;
  bool asked_ = false;
};

}  // namespace nerolith::windows_forms
