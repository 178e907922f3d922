#include "platform/windows/forms/wide_text.h"

#include <windows.h>

namespace nerolith::windows_forms {

std::wstring wideOf(std::string_view text) {
  const int length = static_cast<int>(text.size());
  const int needed = MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(needed), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(), needed);
  return wide;
}

std::string utf8Of(std::wstring_view text) {
  const int length = static_cast<int>(text.size());
  const int needed =
      WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string narrow(static_cast<std::size_t>(needed), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), length, narrow.data(), needed, nullptr, nullptr);
  return narrow;
}

std::wstring withoutMark(std::wstring_view caption) {
  std::wstring plain;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == L'&' && i + 1 < caption.size()) ++i;
    plain += caption[i];
  }
  return plain;
}

wchar_t accessKeyOf(std::wstring_view caption) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != L'&') continue;
    if (caption[i + 1] != L'&')
      return static_cast<wchar_t>(reinterpret_cast<ULONG_PTR>(
          CharUpperW(reinterpret_cast<LPWSTR>(static_cast<ULONG_PTR>(caption[i + 1])))));
    ++i;
  }
  return 0;
}

}  // namespace nerolith::windows_forms
