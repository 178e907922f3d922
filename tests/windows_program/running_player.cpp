#include "windows_program/running_player.h"

#include <commctrl.h>

#include <stdexcept>

#include "platform/windows/wide_text.h"

namespace nerolith::windows_program {
namespace {

constexpr const wchar_t* kSettings = L"Software\\VB and VBA Program Settings\\";
constexpr const wchar_t* kApplications[] = {L"Velmarion", L"Nerolith",
                                            L"Microsoft Visual Basic AddIns"};
constexpr const wchar_t* kMainClass = L"NerolithWindow";

std::wstring textOf(HWND window) {
  wchar_t text[512] = L"";
  GetWindowTextW(window, text, 512);
  // Another process hands out the names of its top-level windows only; the rest has to be asked.
  DWORD_PTR length = 0;
  SendMessageTimeoutW(window, WM_GETTEXT, 512, reinterpret_cast<LPARAM>(text), SMTO_ABORTIFHUNG,
                      2000, &length);
  return text;
}

struct Sought {
  std::wstring className{}, words{}, beginning{};  // of a top-level window: its title
  DWORD process = 0;
  bool titled = false;
  HWND except = nullptr, found = nullptr;
};

bool isOfClass(HWND window, const std::wstring& className) {
  wchar_t name[64] = L"";
  GetClassNameW(window, name, 64);
  return className.empty() || lstrcmpiW(name, className.c_str()) == 0;
}

BOOL CALLBACK lookAtWindow(HWND window, LPARAM data) {
  auto& sought = *reinterpret_cast<Sought*>(data);
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if (process != sought.process || !IsWindowVisible(window) || window == sought.except) return TRUE;
  if (!isOfClass(window, sought.className)) return TRUE;
  if (sought.titled && GetWindowTextLengthW(window) == 0) return TRUE;
  if (!sought.words.empty() && textOf(window) != sought.words) return TRUE;
  sought.found = window;
  return FALSE;
}

BOOL CALLBACK lookAtChild(HWND window, LPARAM data) {
  auto& sought = *reinterpret_cast<Sought*>(data);
  if (!isOfClass(window, sought.className)) return TRUE;
  if (!sought.words.empty() && textOf(window) != sought.words) return TRUE;
  if (!sought.beginning.empty() && !textOf(window).starts_with(sought.beginning)) return TRUE;
  sought.found = window;
  return FALSE;
}

HWND topWindow(Sought sought) {
  EnumWindows(&lookAtWindow, reinterpret_cast<LPARAM>(&sought));
  return sought.found;
}

}  // namespace

void FreshSettings::remove() {
  for (const wchar_t* application : kApplications)
    RegDeleteTreeW(HKEY_CURRENT_USER, (std::wstring(kSettings) + application).c_str());
}

void FreshSettings::put(const std::wstring& section, const std::wstring& name, DWORD type,
                        const void* bytes, std::size_t count) const {
  windows::RegistryKey key;
  if (RegCreateKeyExW(HKEY_CURRENT_USER, (kSettings + section).c_str(), 0, nullptr, 0,
                      KEY_SET_VALUE, nullptr, key.out(), nullptr) != ERROR_SUCCESS ||
      RegSetValueExW(key.get(), name.c_str(), 0, type, static_cast<const BYTE*>(bytes),
                     static_cast<DWORD>(count)) != ERROR_SUCCESS)
    throw std::runtime_error("the setting cannot be stored");
}

void FreshSettings::put(const std::wstring& section, const std::wstring& name,
                        const std::wstring& text) const {
  put(section, name, REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
}

std::wstring FreshSettings::text(const std::wstring& section, const std::wstring& name) const {
  wchar_t text[1024] = L"";
  DWORD bytes = sizeof text;
  RegGetValueW(HKEY_CURRENT_USER, (kSettings + section).c_str(), name.c_str(), RRF_RT_REG_SZ,
               nullptr, text, &bytes);
  return text;
}

RunningPlayer::RunningPlayer(const std::wstring& commandLine) {
  std::wstring line = L"\"" + windows::wideText(NEROLITH_PROGRAM) + L"\" " + commandLine;
  STARTUPINFOW how{};
  how.cb = sizeof how;
  PROCESS_INFORMATION started{};
  if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &how,
                      &started))
    throw std::runtime_error("the program cannot be started");
  CloseHandle(started.hThread);
  process_ = windows::SystemHandle(started.hProcess);
  id_ = started.dwProcessId;
  within(20000, [this] {
    window_ = topWindow({.className = kMainClass, .process = id_, .titled = true});
    return window_ || WaitForSingleObject(process(), 0) == WAIT_OBJECT_0;
  });
  if (!window_) {
    TerminateProcess(process(), 1);
    throw std::runtime_error("the program shows no window");
  }
}

RunningPlayer::~RunningPlayer() {
  TerminateProcess(process(), 1);
  WaitForSingleObject(process(), 5000);
}

HWND RunningPlayer::child(const wchar_t* className, const std::wstring& name) const {
  Sought sought{className, name};
  EnumChildWindows(window_, &lookAtChild, reinterpret_cast<LPARAM>(&sought));
  return sought.found;
}

HWND RunningPlayer::list() const { return child(WC_LISTVIEWW); }

int RunningPlayer::songs() const {
  return static_cast<int>(SendMessageW(list(), LVM_GETITEMCOUNT, 0, 0));
}

bool RunningPlayer::shows(const std::wstring& words, int milliseconds) const {
  return within(milliseconds, [&] { return child(L"STATIC", words) != nullptr; });
}

bool RunningPlayer::saysSomethingLike(HWND window, const std::wstring& beginning,
                                      int milliseconds) const {
  return within(milliseconds, [&] {
    Sought sought{L"STATIC", {}, beginning};
    EnumChildWindows(window, &lookAtChild, reinterpret_cast<LPARAM>(&sought));
    return sought.found != nullptr;
  });
}

HWND RunningPlayer::menu(int milliseconds) const {
  HWND found = nullptr;
  within(milliseconds,
         [&] { return (found = topWindow({.className = L"#32768", .process = id_})) != nullptr; });
  return found;
}

bool RunningPlayer::menuGone(int milliseconds) const {
  return within(milliseconds, [&] { return !topWindow({.className = L"#32768", .process = id_}); });
}

HWND RunningPlayer::message(int milliseconds) const {
  HWND found = nullptr;
  within(milliseconds, [&] {
    return (found = topWindow(
                {.className = L"#32770", .process = id_, .titled = true, .except = window_})) !=
           nullptr;
  });
  return found;
}

HWND RunningPlayer::dialog(const std::wstring& title, int milliseconds) const {
  HWND found = nullptr;
  within(milliseconds, [&] {
    return (found = topWindow({.className = L"#32770", .words = title, .process = id_})) != nullptr;
  });
  return found;
}

HWND RunningPlayer::window(const std::wstring& title, int milliseconds) const {
  HWND found = nullptr;
  within(milliseconds, [&] {
    return (found = topWindow({.className = kMainClass, .words = title, .process = id_})) !=
           nullptr;
  });
  return found;
}

std::wstring RunningPlayer::words(HWND box) const { return textOf(GetDlgItem(box, 0xFFFF)); }

bool RunningPlayer::chooseFile(const std::wstring& title, const std::wstring& path) const {
  constexpr int kNameList = 0x47C, kNameField = 0x480;
  const HWND box = dialog(title);
  if (!box) return false;
  // A dialog that still reads its folder may take no answer yet.
  for (int round = 0; round < 10 && IsWindow(box); ++round) {
    HWND field = GetDlgItem(box, kNameList);
    if (!field) field = GetDlgItem(box, kNameField);
    DWORD_PTR taken = 0;
    SendMessageTimeoutW(field, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()),
                        SMTO_ABORTIFHUNG, 2000, &taken);
    PostMessageW(box, WM_COMMAND, IDOK, 0);
    within(1000, [box] { return !IsWindow(box); });
  }
  return !IsWindow(box);
}

void RunningPlayer::press(HWND button) const { PostMessageW(button, BM_CLICK, 0, 0); }

void RunningPlayer::doubleClickRow(int row) const {
  const auto one = SendMessageW(list(), LVM_APPROXIMATEVIEWRECT, 1, MAKELPARAM(-1, -1));
  const auto two = SendMessageW(list(), LVM_APPROXIMATEVIEWRECT, 2, MAKELPARAM(-1, -1));
  const int height = HIWORD(two) - HIWORD(one);
  const LPARAM where = MAKELPARAM(60, row * height + height / 2);
  PostMessageW(list(), WM_LBUTTONDOWN, MK_LBUTTON, where);
  PostMessageW(list(), WM_LBUTTONUP, 0, where);
  PostMessageW(list(), WM_LBUTTONDBLCLK, MK_LBUTTON, where);
  PostMessageW(list(), WM_LBUTTONUP, 0, where);
}

void RunningPlayer::key(HWND target, WPARAM code) const {
  PostMessageW(target, WM_KEYDOWN, code, 1);
  PostMessageW(target, WM_KEYUP, code, static_cast<LPARAM>(0xC0000001));
}

void RunningPlayer::altKey(char letter) const {
  PostMessageW(list(), WM_SYSKEYDOWN, static_cast<WPARAM>(letter), (1 << 29) | 1);
  PostMessageW(list(), WM_SYSKEYUP, static_cast<WPARAM>(letter), (1 << 29) | 1);
}

DWORD RunningPlayer::close() {
  PostMessageW(window_, WM_CLOSE, 0, 0);
  DWORD code = 9999;
  if (WaitForSingleObject(process(), 10000) == WAIT_OBJECT_0) GetExitCodeProcess(process(), &code);
  return code;
}

}  // namespace nerolith::windows_program
