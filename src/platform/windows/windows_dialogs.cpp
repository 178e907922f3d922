#include "platform/windows/windows_dialogs.h"

#include <windows.h>
// After windows.h, which it needs.
#include <commdlg.h>

#include <algorithm>

#include "platform/failure.h"
#include "platform/windows/failure_text.h"
#include "platform/windows/handles.h"
#include "platform/windows/wide_text.h"

namespace nerolith::windows {
namespace {

using platform::Answer;

/// The longest path that Windows knows, and its zero.
constexpr std::size_t kPathRoom = 32768;

using Hook = Handle<HHOOK, &UnhookWindowsHookEx>;

/// A box with Yes and No only leaves Escape without effect: here it presses No.
LRESULT CALLBACK escapePressesNo(int code, WPARAM wParam, LPARAM lParam) {
  const MSG& message = *reinterpret_cast<const MSG*>(lParam);
  if (code == MSGF_DIALOGBOX && message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE) {
    const HWND box = GetAncestor(message.hwnd, GA_ROOT);
    if (GetDlgItem(box, IDNO)) return PostMessageW(box, WM_COMMAND, IDNO, 0) != 0;
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

UINT styleOf(const platform::Message& message) {
  UINT style = MB_TASKMODAL | MB_SETFOREGROUND;
  if (message.icon == platform::MessageIcon::Information) style |= MB_ICONINFORMATION;
  if (message.icon == platform::MessageIcon::Critical) style |= MB_ICONERROR;
  if (message.buttons == platform::MessageButtons::Ok) return style | MB_OK;
  return style | MB_YESNO | (message.preset == Answer::No ? MB_DEFBUTTON2 : MB_DEFBUTTON1);
}

/// "description|pattern" pairs as the list of texts that ends with an empty one.
std::wstring filterList(const std::string& filter) {
  if (filter.empty()) return {};
  std::wstring list = wideText(filter) + L'\0';
  std::replace(list.begin(), list.end(), L'|', L'\0');
  return list + L'\0';
}

}  // namespace

Answer WindowsDialogs::showMessage(const platform::Message& message) {
  const Hook hook(SetWindowsHookExW(WH_MSGFILTER, &escapePressesNo, nullptr, GetCurrentThreadId()));
  const int pressed =
      MessageBoxW(owner_(), wideText(message.text).c_str(), L"Nerolith", styleOf(message));
  if (pressed == 0) throwLastError("A message box");
  if (message.buttons == platform::MessageButtons::Ok) return Answer::Ok;
  return pressed == IDYES ? Answer::Yes : Answer::No;
}

std::optional<std::string> WindowsDialogs::openFile(const platform::FileQuestion& question) {
  return ask(question, false);
}

std::optional<std::string> WindowsDialogs::saveFile(const platform::FileQuestion& question) {
  return ask(question, true);
}

std::optional<std::string> WindowsDialogs::ask(const platform::FileQuestion& question, bool save) {
  const std::wstring title = wideText(question.title), filter = filterList(question.filter);
  const std::wstring folder = wideText(folder_());
  const std::wstring ending = wideText(question.ending);
  std::wstring path = wideText(question.fileName);
  path.resize(kPathRoom);
  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = owner_();
  dialog.lpstrTitle = title.empty() ? nullptr : title.c_str();
  dialog.lpstrFilter = filter.empty() ? nullptr : filter.c_str();
  dialog.lpstrInitialDir = folder.c_str();
  dialog.lpstrFile = path.data();
  dialog.nMaxFile = static_cast<DWORD>(path.size());
  dialog.Flags = OFN_EXPLORER | OFN_NOCHANGEDIR | OFN_HIDEREADONLY | OFN_PATHMUSTEXIST |
                 (save ? 0 : OFN_FILEMUSTEXIST);
  if (save && question.askBeforeReplacing) dialog.Flags |= OFN_OVERWRITEPROMPT;
  if (save && !ending.empty()) dialog.lpstrDefExt = ending.c_str();
  const auto show = [&] { return save ? GetSaveFileNameW(&dialog) : GetOpenFileNameW(&dialog); };
  BOOL chosen = show();
  if (!chosen && CommDlgExtendedError() == FNERR_INVALIDFILENAME) {
    // A suggested name that cannot be is no reason not to ask.
    path[0] = L'\0';
    chosen = show();
  }
  if (chosen) return utf8Text(path.c_str());
  if (const DWORD error = CommDlgExtendedError())
    throw platform::Failure("The file dialog cannot be shown", static_cast<int>(error));
  return std::nullopt;
}

}  // namespace nerolith::windows
