#include "platform/windows/forms/display_dpi.h"

#include "platform/windows/forms/gdi.h"

namespace nerolith::windows_forms {
namespace {

template <typename Function>
Function find(HMODULE module, const char* name) {
  if (!module) return nullptr;
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

}  // namespace

int dpiOf(HWND window) {
  static const auto ask =
      find<UINT(WINAPI*)(HWND)>(GetModuleHandleW(L"user32.dll"), "GetDpiForWindow");
  const UINT dpi = ask ? ask(window) : 0;
  if (dpi > 0) return static_cast<int>(dpi);
  return GetDeviceCaps(WindowDc(nullptr).get(), LOGPIXELSY);
}

void darkenTitleBar(HWND window) {
  constexpr DWORD darkMode = 20;
  static const HMODULE library =
      LoadLibraryExW(L"dwmapi.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  static const auto set =
      find<HRESULT(WINAPI*)(HWND, DWORD, LPCVOID, DWORD)>(library, "DwmSetWindowAttribute");
  const BOOL dark = TRUE;
  if (set) set(window, darkMode, &dark, sizeof dark);
}

}  // namespace nerolith::windows_forms
