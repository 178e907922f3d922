#include "platform/windows/failure_text.h"

#include <cstdio>
#include <iterator>

#include "platform/failure.h"
#include "platform/windows/wide_text.h"

namespace nerolith::windows {

std::string systemWords(DWORD code) {
  wchar_t text[512];
  DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                code, 0, text, static_cast<DWORD>(std::size(text)), nullptr);
  while (length > 0 && (text[length - 1] <= L' ' || text[length - 1] == L'.')) --length;
  if (length > 0) return utf8Text({text, length});
  char number[32];
  std::snprintf(number, sizeof number, "error 0x%08lX", static_cast<unsigned long>(code));
  return number;
}

void throwFailure(const std::string& what, DWORD code) {
  throw platform::Failure(what + ": " + systemWords(code), static_cast<int>(code));
}

void throwLastError(const std::string& what) { throwFailure(what, GetLastError()); }

void require(HRESULT result, const std::string& what) {
  if (FAILED(result)) throwFailure(what, static_cast<DWORD>(result));
}

}  // namespace nerolith::windows
