// Text between the player (UTF-8) and the system's calls (UTF-16).
#pragma once

#include <string>
#include <string_view>

namespace nerolith::windows_forms {

/// What is no valid UTF-8 becomes replacement characters.
std::wstring wideOf(std::string_view text);
std::string utf8Of(std::wstring_view text);

/// The caption without the mark of its access key ("&Stop" -> "Stop", "&&" -> "&").
std::wstring withoutMark(std::wstring_view caption);
/// The access key in upper case; 0 where the caption marks none.
wchar_t accessKeyOf(std::wstring_view caption);

}  // namespace nerolith::windows_forms
