// The system's error numbers as failures that can be shown.
#pragma once

#include <windows.h>

#include <string>

namespace nerolith::windows {

/// The system's words for an error number or an HRESULT, without a full stop or line break at the
/// end; "error 0x80040218" where it has none. Never fails.
std::string systemWords(DWORD code);

/// Throws platform::Failure "WHAT: the system's words" with that code.
[[noreturn]] void throwFailure(const std::string& what, DWORD code);
/// The same with what GetLastError says.
[[noreturn]] void throwLastError(const std::string& what);

/// Throws unless the call succeeded; S_FALSE and its like are success.
void require(HRESULT result, const std::string& what);

}  // namespace nerolith::windows
