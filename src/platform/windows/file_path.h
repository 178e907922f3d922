// Windows paths as the player keeps them, and as the system is asked for them. Pure.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace nerolith::windows {

/// What the system adds in front of a path to take it literally.
inline constexpr std::string_view kLiteral = R"(\\?\)";

/// Length of the root at the front of a tidy path, its separator included: 3 for "C:\Music", 15 for
/// "\\server\share\a.mp3", and all of "\\server\share". 0 when the path has no root of its own.
std::size_t rootLength(std::string_view path);

/// An absolute path with single "\" only, without "." and "..", without a separator at its end
/// unless it is a root, the drive in upper case. A path that does not begin at a root begins in
/// `current`, a tidy folder. Fails for an empty path, one that holds a zero character, one without
/// any root and one that names a device ("\\.\...").
std::string tidyPath(std::string_view path, std::string_view current);

/// The folders from the root to a tidy path, both included.
std::vector<std::string> wayTo(const std::string& tidy);

/// What to hand to the system for a tidy path: as it is, or, where the system would misread it,
/// taken literally: paths too long for the short form, and names that end in a dot or a blank or
/// that stand for a device ("nul", "com1.mp3").
std::wstring systemPath(const std::string& tidy);

/// Taken literally whatever it is: the quicker form, as the system has nothing to work out.
std::wstring literalPath(const std::string& tidy);

}  // namespace nerolith::windows
