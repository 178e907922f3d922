// The player's UTF-8 texts as the UTF-16 that Windows takes, and back.
#pragma once

#include <string>
#include <string_view>

namespace nerolith::windows {

/// A byte that is no part of a character becomes U+FFFD. A surrogate on its own, which file names
/// may hold, is taken as the three bytes that `utf8Text` makes of it.
std::wstring wideText(std::string_view utf8);

/// A surrogate without its partner becomes three bytes that are no strict UTF-8 and that
/// `wideText` turns back: no name is lost on the way through the player.
std::string utf8Text(std::wstring_view wide);

}  // namespace nerolith::windows
